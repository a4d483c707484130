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

' Every class is created by its ProgID and answers through its dual interface.

Dim progIds, progId, created
progIds = Array("Varnex.Transport", "Varnex.IDataCollection", "Varnex.DataCollection", _
                "Varnex.DataCollectionProvider", "Varnex.DataCollectionSource")
For Each progId In progIds
  Set created = CreateObject(progId)
  Check progId & " is an object", IsObject(created), True
Next

Dim t
Set t = CreateObject("Varnex.Transport")
Check "a new document", t.TransportDoc, "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/></TALVEN>"
Check "root name", t.RootName, "TALVEN"
t.RootName = "SURVEY"
Check "root name put", t.TransportDoc, "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/></SURVEY>"

' The blank collection class answers 0, "", Nothing and False.
Dim blank
Set blank = CreateObject("Varnex.IDataCollection")
blank.Data = "<R/>"
Check "IDataCollection Count", blank.Count, 0
CheckType "IDataCollection Count", blank.Count, vbLong
Check "IDataCollection CountPropertyNames", blank.CountPropertyNames, 0
Check "IDataCollection PropertyNames", blank.PropertyNames(1), ""
Check "IDataCollection Item", blank.Item(1) Is Nothing, True
Check "IDataCollection BindToGrid", blank.BindToGrid(t), False
CheckType "IDataCollection BindToGrid", blank.BindToGrid(t), vbBoolean

' Two objects are two documents.
Dim t2
Set t2 = CreateObject("Varnex.Transport")
Call t2.AddComponent(0, "Only")
Check "separate documents", t.CountCompChildren(0), 0
Check "distinct objects", t Is t2, False

Finish
