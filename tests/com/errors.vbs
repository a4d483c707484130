' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' Each class of error reaches the script with its number, source and description: the core's
' own (tested natively) need only arrive whole, the dispatch layer's keep the script runtime's
' numbers, and the object stays usable after them.
Const classError = -2147220991  ' 0x80040201
Const xmlError = -2147467259    ' 0x80004005
Const scriptRuntime = "Microsoft VBScript runtime error"

Dim t, site, dc, row, provider, scratch
Set t = CreateObject("Varnex.Transport")
site = t.AddComponent(0, "Site")

' One error of each class the core raises, and a missing object passed in.
Sub CoreErrors()
  On Error Resume Next
  scratch = t.AddComponent(99, "X")
  CheckError "runtime error", 424, "Varnex", "AddComponent: Invalid Handle"
  scratch = t.AddCompAttachment(site, "<broken")
  CheckError "class error", classError, "Transport", "AddCompAttachment: Invalid XML supplied."
  scratch = t.AddComponent(0, "1bad")
  CheckError "XML error", xmlError, "Varnex", "AddComponent: The name '1BAD' is not a valid XML element name."
  Call t.TrimDocument(Nothing, Nothing, False)
  CheckError "TrimDocument without a node", 91, "Varnex", "TrimDocument: Object variable or With block variable not set"
End Sub

' Errors of the dispatch layer itself keep the script runtime's own numbers and source.
Sub DispatchErrors()
  On Error Resume Next
  scratch = t.AddComponent("not a number", "X")
  CheckError "type mismatch", 13, scriptRuntime, "Type mismatch"
  scratch = t.AddComponent(0)
  Check "required argument left out", Err.Number, 450
  Err.Clear
  scratch = t.CountDomains(1, 2)
  Check "too many arguments", Err.Number, 450
  Err.Clear
  t.NoSuchMember 1
  CheckError "unknown member", 438, scriptRuntime, "Object doesn't support this property or method"
  scratch = t.AddComponent(3000000000, "X")
  Check "overflow", Err.Number, 6
  Err.Clear
  scratch = t.DicKeyExists("text", "A")
  Check "a dictionary that is no object", Err.Number, 13
  Err.Clear
End Sub

' The other classes raise theirs through the same frame; script arrays never set or Empty give none.
Sub BindingErrors()
  On Error Resume Next
  Set dc = CreateObject("Varnex.DataCollection")
  dc.Data = "<R><COLLECTION><ITEMS><COMPONENT><ITEM><PROPERTIES><A>1</A></PROPERTIES></ITEM></COMPONENT>" & _
            "</ITEMS></COLLECTION></R>"
  Set row = dc.Item(5)
  CheckError "item out of range", 9, "Varnex", "Item: Subscript out of range"

  Set provider = CreateObject("Varnex.DataCollectionProvider")
  Dim never(), unset
  provider.LoadData dc, never
  CheckError "types never set", classError, "DataCollectionProvider", "Error Loading Data into Provider."
  provider.LoadData dc, unset, "A"
  CheckError "types Empty", classError, "DataCollectionProvider", "Error Loading Data into Provider."

  Dim plain
  Set plain = New PlainControl
  Check "BindToGrid answers False", dc.BindToGrid(plain), False
  CheckError "a control without DataSource", classError, "DataCollection", "Error Binding to Grid."
End Sub

' A control that has no DataSource to assign.
Class PlainControl
  Public Caption
End Class

CoreErrors
DispatchErrors
BindingErrors
Check "the object works after errors", t.FindChildCompByName(0, "Site"), site
Finish
