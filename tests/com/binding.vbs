' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' The data-binding classes as a script reaches them: item rows as collection objects, For Each
' over the collection and a row, the provider's LoadData with script arrays, the data source's
' properties, and BindToGrid handing a script's own control the data source.
Dim dc, row, value, values, count
Set dc = CreateObject("Varnex.DataCollection")
dc.Data = "<R><COLLECTION><VISITS>" _
  & "<COMPONENT><VISIT><PROPERTIES><SITE>North</SITE><PASSED>yes</PASSED></PROPERTIES></VISIT></COMPONENT>" _
  & "<COMPONENT><VISIT><PROPERTIES><SITE>South</SITE><PASSED>no</PASSED><EXTRA>x</EXTRA></PROPERTIES></VISIT>" _
  & "</COMPONENT></VISITS></COLLECTION></R>"
Check "Count", dc.Count, 2
CheckType "Count", dc.Count, vbLong
Check "PropertyNames", dc.PropertyNames(2), "PASSED"

Set row = dc.Item(1)
Check "row Item by key", row.Item("SITE"), "North"
Check "row default member, key in any case", row("passed"), "yes"
Check "row Item by position", row(2), "yes"
Check "the same row object every time", row Is dc.Item(1), True
row.Add "added", "Note"
Check "row Add with a key", dc.Item(1)("NOTE"), "added"
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

' The provider takes script arrays (a fixed one and Array()) and optional fields.
Dim provider, types(1)
types(0) = 8
types(1) = 11
Set provider = CreateObject("Varnex.DataCollectionProvider")
provider.LoadData dc, types, "Site, Passed"
provider.LoadData dc, Array(8, 11)

' The data source stores what it is given; an array may be a script array or never set.
Dim source, never()
Set source = CreateObject("Varnex.DataCollectionSource")
Set source.Data = dc
source.Fields = "SITE,PASSED"
source.DataTypes = types
source.DataTypes = never

' BindToGrid: a control that is no grid gets the data source assigned; the answer is False.
Dim control, bound
Set control = New PlainControl
bound = dc.BindToGrid(control, "SITE")
Check "BindToGrid answers False", bound, False
Check "the control got the data source", TypeName(control.DataSource), "_DataCollectionSource"

Class PlainControl
  Public DataSource
End Class

Finish
