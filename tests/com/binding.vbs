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

' The data-binding classes as a script reaches them: item rows as collection objects, For Each
' over the collection and a row, the provider's LoadData with script arrays, the data source's
' properties, and BindToGrid handing a control the data source.
Dim doc
doc = "<R><COMPONENT><LONE><PROPERTIES><Z>0</Z></PROPERTIES></LONE></COMPONENT><COLLECTION><VISITS>" _
  & "<COMPONENT><VISIT><PROPERTIES><SITE>North</SITE><PASSED STATUS=""MODIFIED"" ORIGINAL=""no"">yes</PASSED>" _
  & "</PROPERTIES></VISIT></COMPONENT>" _
  & "<COMPONENT><VISIT STATUS=""DELETED""><PROPERTIES><SITE>South</SITE><PASSED>no</PASSED><EXTRA>x</EXTRA>" _
  & "</PROPERTIES></VISIT></COMPONENT>" _
  & "</VISITS></COLLECTION><COLLECTION><OTHERS><COMPONENT><O><PROPERTIES><Q>1</Q></PROPERTIES></O></COMPONENT>" _
  & "</OTHERS></COLLECTION></R>"

Dim dc, row, value, values, count
Set dc = CreateObject("Varnex.DataCollection")
Check "a fresh collection", dc.Count, 0
dc.Data = doc
Check "items of the first collection, deleted ones included", dc.Count, 2
CheckType "Count", dc.Count, vbLong
Check "columns of the first item", dc.CountPropertyNames, 2
Check "first column", dc.PropertyNames(1), "SITE"
Check "second column", dc.PropertyNames(2), "PASSED"

Set row = dc.Item(1)
Check "row Count", row.Count, 2
Check "row Item by key", row.Item("SITE"), "North"
Check "row default member, key in any case", row("passed"), "yes"
Check "row Item by position", row(2), "yes"
Check "the same row object every time", row Is dc.Item(1), True
Check "a later item keeps its own properties", dc.Item(2)("Extra"), "x"
row.Add "added", "Note"
Check "row Add", row("NOTE"), "added"
Check "the row is shared", dc.Item(1).Count, 3
row.Remove "note"
Check "row Remove", row.Count, 2

' For Each over the collection and over a row.
count = 0
values = ""
For Each row In dc
  count = count + 1
  For Each value In row
    values = values & value & ";"
  Next
Next
Check "For Each over the items", count, 2
Check "For Each over the values", values, "North;yes;South;no;x;"

' The provider takes script arrays (of any lower bound) and optional fields.
Dim provider, types(1)
types(0) = 8
types(1) = 11
Set provider = CreateObject("Varnex.DataCollectionProvider")
provider.LoadData dc, types
provider.LoadData dc, types, "Site, Passed"
provider.LoadData dc, Array(8, 11), "SITE"
Check "the provider was loaded", IsObject(provider), True

' The data source stores what it is given; an array may be a script array or never set.
Dim source, never()
Set source = CreateObject("Varnex.DataCollectionSource")
Set source.Data = dc
source.Fields = "SITE,PASSED"
source.DataTypes = types
source.DataTypes = never
source.DataTypes = Array(3)
Check "the source took its data", IsObject(source), True

' BindToGrid: a control that is no grid gets the data source assigned; the answer is False.
Dim control, bound
Set control = New PlainControl
bound = dc.BindToGrid(control, "SITE")
Check "BindToGrid answers False", bound, False
CheckType "BindToGrid answers a Boolean", bound, vbBoolean
Check "the control got a data source", IsObject(control.DataSource), True
Check "the data source is a Varnex object", control.DataSource Is Nothing, False
bound = dc.BindToGrid(control)
Check "BindToGrid with the optional arguments left out", bound, False

Class PlainControl
  Public DataSource
End Class

Finish
