' Run by tests/com/run, which puts support/checks.vbs (Check, CheckError, Finish) first.
' Text outside ASCII, outside the BMP, and a lone surrogate travel through the server unchanged:
' in as arguments, out as a result and through in/out strings. The script reads it from text.txt
' (UTF-16), since a script itself must be plain ANSI.
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
Call t.AddCompProperty(comp, propName, mixed, 1, lone)
Check "property name upper-cased", t.GetCompProperty(comp, 1, value, status, original), propUpper
Check "value and a lone surrogate unchanged", value & "|" & original, mixed & "|" & lone

Finish
