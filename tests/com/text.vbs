Option Explicit
Dim passed, failed
passed = 0
failed = 0

Function Describe(value)
  If IsObject(value) Then
    Describe = "object " & TypeName(value)
  ElseIf IsNull(value) Then
    Describe = "Null"
  Else
    Describe = TypeName(value) & " '" & CStr(value) & "'"
  End If
End Function

Sub Check(name, actual, expected)
  If actual = expected Then
    passed = passed + 1
  Else
    failed = failed + 1
    WScript.Echo "FAIL " & name & ": got " & Describe(actual) & ", expected " & Describe(expected)
  End If
End Sub

' The subtype as VarType tells it: 2 Integer, 3 Long, 8 String, 9 Object, 11 Boolean.
Sub CheckType(name, value, expected)
  Check name & " (VarType)", VarType(value), expected
End Sub

' Checks the error that the statement before raised (under On Error Resume Next), then clears it.
Sub CheckError(name, number, source, description)
  Dim n, s, d
  n = Err.Number
  s = Err.Source
  d = Err.Description
  Err.Clear
  Check name & " (number)", n, number
  Check name & " (source)", s, source
  Check name & " (description)", d, description
End Sub

' Prints the summary line that tests/com/run reads, and sets the exit code.
Sub Finish()
  WScript.Echo passed & " passed, " & failed & " failed"
  If failed > 0 Then WScript.Quit 1
  WScript.Quit 0
End Sub

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
