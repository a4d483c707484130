' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' A typical exchange, as a host runs it: load a stored document, edit it, send only the changes,
' copy values back from the answer, clear the marks, and fold in a received document.
Dim stored
stored = "<SURVEY><DOMAIN><RESULTS><ITEM><CODE>P</CODE></ITEM></RESULTS></DOMAIN><PROPERTY_DOMAINS/>" _
  & "<COMPONENT><SITE><PROPERTIES><NAME>North</NAME></PROPERTIES><COLLECTION><VISITS>" _
  & "<COMPONENT><VISIT><PROPERTIES><DAY>Monday</DAY><SCORE>5</SCORE></PROPERTIES></VISIT></COMPONENT>" _
  & "<COMPONENT><VISIT><PROPERTIES><DAY>Tuesday</DAY><SCORE>6</SCORE></PROPERTIES></VISIT></COMPONENT>" _
  & "</VISITS></COLLECTION></SITE></COMPONENT></SURVEY>"

Dim t, site, visits, first, second, name, status, kind, value, original, short
Set t = CreateObject("Varnex.Transport")
t.TransportDoc = stored
Check "root name taken from the text", t.RootName, "SURVEY"
Check "domains loaded", t.CountDomains, 1
site = t.FindChildCompByName(0, "Site")
visits = t.FindChildCompByName(site, "Visits")
Check "visits", t.CountCompChildren(visits), 2
first = t.GetCompChild(visits, 1, name, status, kind)
second = t.GetCompChild(visits, 2, name, status, kind)
Check "child name", name, "VISIT"
Check "a loaded component is unchanged", t.GetComponentStatus(first), 0

' Edit: change one score, add a visit, delete another.
Check "modify", t.ModifyCompProperty(first, 2, "9"), True
Call t.GetCompProperty(first, 2, value, status, original)
Check "modified value", value, "9"
Check "earlier value kept", original, "5"
Dim added
added = t.AddComponent(visits, "Visit", 2)
Call t.AddCompProperty(added, "Day", "Friday", 2)
Call t.DeleteComponent(second)

' Send only the changes.
short = t.GenerateTransportDoc(1)
Check "the short form is under the root name", Left(short, 8), "<SURVEY>"
Check "the short form holds the modified score", InStr(short, "ORIGINAL=""5""") > 0, True
Check "the short form holds the new visit", InStr(short, "Friday") > 0, True
Check "the short form holds the deletion", InStr(short, "DELETED") > 0, True
Check "the short form leaves the domains out", InStr(short, "<DOMAIN>"), 0

' The answer comes back with values set by the other side; copy them in, then clear the marks.
Dim answer
answer = t.TransportDoc
answer = Replace(answer, ">9<", ">10<")
Check "UpdateDocument", t.UpdateDocument(answer), 1
Call t.GetCompProperty(first, 2, value, status, original)
Check "value copied back", value, "10"
Check "ResetStatus", t.ResetStatus, 0
Call t.GetCompProperty(first, 2, value, status, original)
Check "marks cleared", status, 0
Check "earlier value dropped", original, ""
Check "the deleted visit is cut out", InStr(t.TransportDoc, "Tuesday"), 0
Check "the new visit stays new", t.GetComponentStatus(added), 2

' A received document is folded in under a parent.
Dim received, merged
received = "<SURVEY><COMPONENT><VISIT STATUS=""NEW""><PROPERTIES><DAY>Sunday</DAY></PROPERTIES></VISIT>" _
  & "</COMPONENT></SURVEY>"
Check "MergeDocument", t.MergeDocument(received, visits), 1
Check "merged visit", t.CountCompChildren(visits), 3
merged = t.GetCompChild(visits, 3, name, status, kind)
Check "merged visit status", status, 2
Call t.GetCompProperty(merged, 1, value, status, original)
Check "merged visit value", value, "Sunday"

Finish
