' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' Text outside ASCII, outside the BMP, and a lone surrogate travel through the server unchanged.
' The script reads it from text.txt (UTF-16), since a script itself must be plain ANSI.
Dim fso, file, mixed, propName, propUpper, compName, compUpper, lone
Set fso = CreateObject("Scripting.FileSystemObject")
Set file = fso.OpenTextFile(fso.BuildPath(fso.GetParentFolderName(WScript.ScriptFullName), "text.txt"), 1, False, -1)
mixed = file.ReadLine
propName = file.ReadLine
propUpper = file.ReadLine
compName = file.ReadLine
compUpper = file.ReadLine
lone = file.ReadLine
file.Close
Check "the test text has a surrogate pair", Len(mixed), 12

Dim t, comp, value, status, original, name, kind
Set t = CreateObject("Varnex.Transport")
comp = t.AddComponent(0, compName)
Call t.GetComponent(comp, name, status, kind)
Check "component name upper-cased", name, compUpper
Check "found by its name", t.FindChildCompByName(0, compName), comp

Call t.AddCompProperty(comp, propName, mixed, 1, lone)
Check "property name upper-cased", t.GetCompProperty(comp, 1, value, status, original), propUpper
Check "value unchanged", value, mixed
Check "value length in UTF-16 units", Len(value), Len(mixed)
Check "a lone surrogate survives", original, lone
Check "found by property name", t.FindCompPropertyByName(comp, propName), 1
Call t.ModifyCompProperty(comp, 1, lone & mixed)
Call t.GetCompProperty(comp, 1, value, status, original)
Check "modified value", value, lone & mixed

' Through the whole document and back.
Dim copy
Set copy = CreateObject("Varnex.Transport")
copy.TransportDoc = t.TransportDoc
comp = copy.FindChildCompByName(0, compName)
Call copy.GetCompProperty(comp, 1, value, status, original)
Check "value after a round trip", value, lone & mixed
Check "original after a round trip", original, mixed
Check "the document text is the same", copy.TransportDoc, t.TransportDoc

' Attributes, domains and the item collection carry it as well.
Call t.AddCompAttribute(comp, "Label", mixed)
Check "attribute", t.GetCompAttribute(comp, "Label"), mixed
Dim domain, code, desc
domain = t.AddDomain(propName, mixed, lone)
Check "domain name", t.GetDomain(domain, code, desc), propUpper
Check "domain code", code, mixed
Check "domain description", desc, lone

Dim dc
Set dc = CreateObject("Varnex.DataCollection")
dc.Data = "<R><COLLECTION><ITEMS><COMPONENT><ITEM><PROPERTIES><" & propName & ">" & mixed & "</" & propName & _
          "></PROPERTIES></ITEM></COMPONENT></ITEMS></COLLECTION></R>"
Check "column name", dc.PropertyNames(1), propUpper
Check "row value by its key in another case", dc.Item(1)(propName), mixed

Finish
