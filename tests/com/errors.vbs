' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' Every class of error reaches the script with its number, source and description, and the
' object stays usable after it.
Const classError = -2147220991  ' 0x80040201
Const xmlError = -2147467259    ' 0x80004005
Const scriptRuntime = "Microsoft VBScript runtime error"

Dim t, site, dc, row, provider, source, scratch
Set t = CreateObject("Varnex.Transport")
site = t.AddComponent(0, "Site")
Call t.AddCompProperty(site, "Name", "Alpha")

Sub RuntimeErrors()
  On Error Resume Next
  scratch = t.AddComponent(99, "X")
  CheckError "unknown parent", 424, "Varnex", "AddComponent: Invalid Handle"
  scratch = t.GetComponent(42, "", 0, 0)
  CheckError "unknown handle", 424, "Varnex", "GetComponent: Invalid Handle"
  scratch = t.GetCompAttribute(site, "Missing")
  CheckError "missing attribute", 94, "Varnex", "GetCompAttribute: Invalid use of Null"
  scratch = t.GetCompAttachment(site, "NOTE")
  CheckError "missing attachment", classError, "Transport", "GetCompAttachment: Attachment not found."
End Sub

Sub ClassAndXmlErrors()
  On Error Resume Next
  scratch = t.AddCompAttachment(site, "<broken")
  CheckError "invalid attachment", classError, "Transport", "AddCompAttachment: Invalid XML supplied."
  scratch = t.GetComponentXML(42)
  CheckError "unknown handle", classError, "Transport", "Error retrieving component xml."
  scratch = t.AddComponent(0, "1bad")
  CheckError "invalid element name", xmlError, "Varnex", _
    "AddComponent: The name '1BAD' is not a valid XML element name."
  Dim loaded
  Set loaded = CreateObject("Varnex.Transport")
  loaded.TransportDoc = "<not xml"
  Check "invalid document number", Err.Number <> 0, True
  Check "invalid document description", Left(Err.Description, 17), "GetTransportDoc: "
  Err.Clear
  Check "left with an empty document", loaded.TransportDoc, "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/></TALVEN>"
  loaded.RootName = "2nd"
  Check "invalid root name", Left(Err.Description, 13), "LetRootName: "
  Err.Clear
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
  Dim notDictionary
  notDictionary = "text"
  scratch = t.DicKeyExists(notDictionary, "A")
  Check "a dictionary that is no object", Err.Number, 13
  Err.Clear
End Sub

' Collections, providers and sources raise their own errors.
Sub BindingErrors()
  On Error Resume Next
  Set dc = CreateObject("Varnex.DataCollection")
  dc.Data = "<R><COLLECTION><ITEMS><COMPONENT><ITEM><PROPERTIES><A>1</A></PROPERTIES></ITEM></COMPONENT>" & _
            "</ITEMS></COLLECTION></R>"
  Set row = dc.Item(5)
  CheckError "item out of range", 9, "Varnex", "Item: Subscript out of range"
  scratch = dc.PropertyNames(3)
  CheckError "column out of range", 9, "Varnex", "PropertyNames: Subscript out of range"
  Set row = dc.Item(1)
  scratch = row("nothing")
  CheckError "unknown key of a row", 5, "Varnex", "Invalid procedure call or argument"
  row.Add "2", "a"
  CheckError "duplicate key of a row", 457, "Varnex", "This key is already associated with an element of this collection"
  dc.Data = "not a document"
  Check "Data raises nothing", Err.Number, 0
  Check "a failed load leaves the collection empty", dc.Count, 0

  Set dc = CreateObject("Varnex.DataCollection")
  dc.Data = "<R><COLLECTION><ITEMS><COMPONENT><ITEM><PROPERTIES><A>1</A></PROPERTIES></ITEM></COMPONENT>" & _
            "</ITEMS></COLLECTION></R>"
  Set provider = CreateObject("Varnex.DataCollectionProvider")
  Dim never()
  provider.LoadData dc, never
  CheckError "types never set", classError, "DataCollectionProvider", "Error Loading Data into Provider."
  Dim unset
  provider.LoadData dc, unset, "A"
  CheckError "types Empty", classError, "DataCollectionProvider", "Error Loading Data into Provider."
  provider.LoadData "not a collection", Array(8)
  Check "a collection that is no object", Err.Number, 13
  Err.Clear

  Dim noControl
  Set noControl = Nothing
  scratch = dc.BindToGrid(noControl)
  CheckError "no control", classError, "DataCollection", "Error Binding to Grid."
  Dim plain
  Set plain = New PlainControl
  Check "BindToGrid answers False", dc.BindToGrid(plain), False
  CheckError "a control without DataSource", classError, "DataCollection", "Error Binding to Grid."
End Sub

' A control that has no DataSource to assign.
Class PlainControl
  Public Caption
End Class

RuntimeErrors
ClassAndXmlErrors
DispatchErrors
BindingErrors
Check "the object works after errors", t.CountCompProperties(site), 1
Finish
