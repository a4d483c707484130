' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' A typical exchange, as a host runs it: load a stored document, edit it, send only the changes,
' copy values back from the answer, clear the marks, and fold in a received document.
Dim stored
stored = "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><SITE><PROPERTIES><NAME>North</NAME></PROPERTIES>" _
  & "<COLLECTION><VISITS>" _
  & "<COMPONENT><VISIT><PROPERTIES><DAY>Monday</DAY><SCORE>5</SCORE></PROPERTIES></VISIT></COMPONENT>" _
  & "<COMPONENT><VISIT><PROPERTIES><DAY>Tuesday</DAY><SCORE>6</SCORE></PROPERTIES></VISIT></COMPONENT>" _
  & "</VISITS></COLLECTION></SITE></COMPONENT></SURVEY>"

Dim t, visits, first, name, status, kind, value, original, short
Set t = CreateObject("Varnex.Transport")
t.TransportDoc = stored
visits = t.FindChildCompByName(t.FindChildCompByName(0, "Site"), "Visits")
first = t.GetCompChild(visits, 1, name, status, kind)

' Edit: change one score, add a visit, delete another; send only the changes.
Call t.ModifyCompProperty(first, 2, "9")
Call t.AddCompProperty(t.AddComponent(visits, "Visit", 2), "Day", "Friday", 2)
Call t.DeleteComponent(t.GetCompChild(visits, 2, name, status, kind))
short = t.GenerateTransportDoc(1)
Check "the short form holds the modified score", InStr(short, "ORIGINAL=""5""") > 0, True
Check "the short form holds the new visit", InStr(short, "Friday") > 0, True
Check "the short form holds the deletion", InStr(short, "DELETED") > 0, True

' The answer comes back with values set by the other side; copy them in, then clear the marks.
Check "UpdateDocument", t.UpdateDocument(Replace(t.TransportDoc, ">9<", ">10<")), 1
Check "ResetStatus", t.ResetStatus, 0
Call t.GetCompProperty(first, 2, value, status, original)
Check "value copied back, marks cleared", value & "," & status & "," & original, "10,0,"
Check "the deleted visit is cut out", InStr(t.TransportDoc, "Tuesday"), 0

' A received document is folded in under a parent.
Check "MergeDocument", t.MergeDocument("<SURVEY><COMPONENT><VISIT STATUS=""NEW""><PROPERTIES><DAY>Sunday</DAY>" _
  & "</PROPERTIES></VISIT></COMPONENT></SURVEY>", visits), 1
Check "merged visit", t.CountCompChildren(visits), 3

Finish
