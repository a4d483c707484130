' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
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
