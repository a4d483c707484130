' Run by tests/com/run, which puts support/checks.vbs (Check, CheckError, Finish) first.
' Each class of error reaches the script with its number, source and description: the core's
' own (tested natively) need only arrive whole, the dispatch layer's keep the script runtime's
' numbers, and the object stays usable after them.
Const classError = -2147220991  ' 0x80040201
Const scriptRuntime = "Microsoft VBScript runtime error"
Dim t, site, dc, provider, plain, never(), unset, scratch
Set t = CreateObject("Varnex.Transport")
site = t.AddComponent(0, "Site")
Set dc = CreateObject("Varnex.DataCollection")
dc.Data = "<R><COLLECTION><L><COMPONENT><I><PROPERTIES><A>1</A></PROPERTIES></I></COMPONENT></L></COLLECTION></R>"
Set provider = CreateObject("Varnex.DataCollectionProvider")
Set plain = New PlainControl
On Error Resume Next

' A runtime error and a class error of the core; the other classes raise theirs through the same
' frame, and script arrays never set or Empty arrive as no array.
scratch = t.AddComponent(99, "X")
CheckError "runtime error", 424, "Varnex", "AddComponent: Invalid Handle"
scratch = t.AddCompAttachment(site, "<broken")
CheckError "class error", classError, "Transport", "AddCompAttachment: Invalid XML supplied."
provider.LoadData dc, never
CheckError "types never set", classError, "DataCollectionProvider", "Error Loading Data into Provider."
provider.LoadData dc, unset, "A"
CheckError "types Empty", classError, "DataCollectionProvider", "Error Loading Data into Provider."
Check "BindToGrid answers False", dc.BindToGrid(plain), False
CheckError "a control without DataSource", classError, "DataCollection", "Error Binding to Grid."

' Errors of the dispatch layer itself keep the script runtime's own numbers and source.
scratch = t.AddComponent("not a number", "X")
CheckError "type mismatch", 13, scriptRuntime, "Type mismatch"
t.NoSuchMember 1
CheckError "unknown member", 438, scriptRuntime, "Object doesn't support this property or method"
scratch = t.AddComponent(0)
Check "required argument left out", Err.Number, 450 : Err.Clear
scratch = t.CountDomains(1, 2)
Check "too many arguments", Err.Number, 450 : Err.Clear
scratch = t.AddComponent(3000000000, "X")
Check "overflow", Err.Number, 6 : Err.Clear
scratch = t.DicKeyExists("text", "A")
Check "a dictionary that is no object", Err.Number, 13 : Err.Clear

On Error GoTo 0
Check "the object works after errors", t.FindChildCompByName(0, "Site"), site

' A control that has no DataSource to assign.
Class PlainControl
  Public Caption
End Class

Finish
