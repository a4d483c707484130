' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' Every class is created by its ProgID and answers through its dual interface.
Dim progIds, progId, created
progIds = Array("Varnex.Transport", "Varnex.IDataCollection", "Varnex.DataCollection", _
                "Varnex.DataCollectionProvider", "Varnex.DataCollectionSource")
For Each progId In progIds
  Set created = CreateObject(progId)
  Check progId & " is an object", IsObject(created), True
Next

' A property get and put.
Dim t
Set t = CreateObject("Varnex.Transport")
t.RootName = "SURVEY"
Check "root name put", t.TransportDoc, "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/></SURVEY>"

' The blank collection class answers through the collection's members; an empty item is Nothing.
Dim blank
Set blank = CreateObject("Varnex.IDataCollection")
Check "IDataCollection Count", blank.Count, 0
Check "IDataCollection Item", blank.Item(1) Is Nothing, True

' Two objects are two documents.
Dim t2
Set t2 = CreateObject("Varnex.Transport")
Call t2.AddComponent(0, "Only")
Check "separate documents", t.CountCompChildren(0), 0

Finish
