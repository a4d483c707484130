' Run by tests/com/run, which puts support/checks.vbs (Check, CheckError, Finish) first.
' The data-binding classes as a script reaches them: item rows as collection objects, For Each
' over the collection and a row, the provider's LoadData with script arrays, the data source's
' properties, and BindToGrid handing a script's own control the data source.
Dim dc, row, value, values, count, same
Set dc = CreateObject("Varnex.DataCollection")
dc.Data = "<R><COLLECTION><VISITS>" _
  & "<COMPONENT><VISIT><PROPERTIES><SITE>North</SITE><PASSED>yes</PASSED></PROPERTIES></VISIT></COMPONENT>" _
  & "<COMPONENT><VISIT><PROPERTIES><SITE>South</SITE><PASSED>no</PASSED><EXTRA>x</EXTRA></PROPERTIES></VISIT>" _
  & "</COMPONENT></VISITS></COLLECTION></R>"
Check "Count, PropertyNames", TypeName(dc.Count) & " " & dc.Count & " " & dc.PropertyNames(2), "Long 2 PASSED"

Set row = dc.Item(1)
Check "row Item by key, by default member in any case, by position", row.Item("SITE") & row("passed") & row(2), "Northyesyes"
row.Add "added", "Note"
Check "row Add with a key", dc.Item(1)("NOTE"), "added"
row.Remove "note"
Check "row Remove", row.Count, 2

' For Each over the collection hands out the same row objects as Item; For Each over a row its values.
count = 0
values = ""
same = True
For Each row In dc
  count = count + 1
  same = same And row Is dc.Item(count)
  For Each value In row
    values = values & value & ";"
  Next
Next
Check "For Each over the items", count & " " & same, "2 True"
Check "For Each over the values", values, "North;yes;South;no;x;"

' The provider takes script arrays (a fixed one and Array()) and optional fields; the data source
' stores what it is given, an array never set included.
Dim provider, source, types(1), never()
types(0) = 8
types(1) = 11
Set provider = CreateObject("Varnex.DataCollectionProvider")
provider.LoadData dc, types, "Site, Passed"
provider.LoadData dc, Array(8, 11)
Set source = CreateObject("Varnex.DataCollectionSource")
Set source.Data = dc
source.Fields = "SITE,PASSED"
source.DataTypes = types
source.DataTypes = never

' BindToGrid: a control that is no grid gets the data source assigned; the answer is False.
Dim control
Set control = New PlainControl
Check "BindToGrid answers False", dc.BindToGrid(control, "SITE"), False
Check "the control got the data source", TypeName(control.DataSource), "_DataCollectionSource"

Class PlainControl
  Public DataSource
End Class

Finish
