' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
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
