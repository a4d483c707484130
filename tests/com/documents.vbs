' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' Every kind of parameter as a script passes it: results typed as Long, Boolean and String,
' in/out strings, enumerations and Booleans written back into the caller's variables, omitted
' optional ones taking their defaults, Booleans reaching the core as their 16-bit value, and the
' platform's objects (the prototype Dictionary, the caller's own dictionary).
Dim t, site, visits, visit, name, status, kind, value, original, ignore, persist
Set t = CreateObject("Varnex.Transport")

site = t.AddComponent(0, "Site")
CheckType "AddComponent answers a Long in a Variant", site, vbLong
visits = t.AddCollection(site, "Visits")
visit = t.AddComponent(visits, "Visit", 2)

' Out parameters: a string and two enumerations, each typed on return (exchange.vbs passes Empty ones).
name = "" : status = 0 : kind = 0
Check "GetComponent result", t.GetComponent(visits, name, status, kind), 1
Check "GetComponent out values", name & "," & status & "," & kind, "VISITS,0,1"
CheckType "GetComponent name", name, vbString
CheckType "GetComponent status", status, vbLong

' The optional in/out Boolean given, written back as a Boolean.
ignore = True
Check "GetCompChild ignoring deletes", t.GetCompChild(visits, 1, name, status, kind, ignore), visit
CheckType "GetCompChild Boolean written back", ignore, vbBoolean

' Optional status and original omitted (defaults), then given; all read back through out strings.
Call t.AddCompProperty(visit, "Result", "Pass")
Call t.AddCompProperty(visit, "Score", "7", 1, "5")
value = "" : status = 0 : original = ""
Check "GetCompProperty omitted defaults", t.GetCompProperty(visit, 1, value, status, original), "RESULT"
Check "GetCompProperty omitted values", value & "," & status & "," & original, "Pass,0,"
Check "GetCompProperty given", t.GetCompProperty(visit, 2, value, status, original), "SCORE"
Check "GetCompProperty given values", value & "," & status & "," & original, "7,1,5"

' Boolean and String results.
Check "ModifyCompProperty", t.ModifyCompProperty(visit, 1, "Fail"), True
CheckType "ModifyCompProperty", t.ModifyCompProperty(visit, 1, "Fail"), vbBoolean
Check "AddCompAttachment omitted flag", t.AddCompAttachment(site, "<NOTE>hello</NOTE>"), True
persist = True
Check "AddCompAttachment persisted", t.AddCompAttachment(visit, "<MAP/>", persist), True
Check "GetCompAttachment", t.GetCompAttachment(site, "NOTE"), "<NOTE>hello</NOTE>"

' Booleans reach the core as their 16-bit value: -1 and 1 stay distinct. CountCompChildren leaves
' deleted children out only for True (-1); 1 counts them all, and so does the flag left out.
Dim parent, gone
parent = t.AddComponent(0, "Parent")
Call t.AddComponent(parent, "Kept")
gone = t.AddComponent(parent, "Gone")
Call t.ResetStatus
Call t.DeleteComponent(gone)
Check "CountCompChildren with True", t.CountCompChildren(parent, True), 1
Check "CountCompChildren with 1", t.CountCompChildren(parent, 1), 2
Check "CountCompChildren with False", t.CountCompChildren(parent, False), 2
Check "CountCompChildren omitted flag", t.CountCompChildren(parent), 2

' RemoveComponentStatus answers Empty; an in/out string the core leaves comes back as it was.
Check "RemoveComponentStatus", IsEmpty(t.RemoveComponentStatus(visit)), True
Dim domainName
domainName = "Colours"
Check "AddDomain omitted code and description", t.AddDomain("Colours"), 1
Check "FindDomainByName", t.FindDomainByName(domainName), 1
Check "FindDomainByName leaves its in/out argument", domainName, "Colours"

' The prototype properties come back as a real Scripting.Dictionary of the caller's own.
Dim protos, keys
Call t.AddCompPrototypeProperty(visits, "Result", "Pass")
Call t.AddCompPrototypeProperty(visits, "Notes")
Set protos = t.GetCompPrototypeProperties(visits)
keys = protos.Keys
Check "prototype keys in order", keys(0) & "," & keys(1), "RESULT,NOTES"
Check "prototype values", protos.Item("RESULT") & "," & protos.Item("NOTES"), "Pass,"
protos.Add "Mine", 1
Check "the dictionary is the caller's own", protos.Exists("Mine"), True

' DicKeyExists asks the caller's dictionary; Nothing answers False.
Dim dic, nothingThere
Set dic = CreateObject("Scripting.Dictionary")
dic.Add "A", 1
Check "DicKeyExists present", t.DicKeyExists(dic, "A"), True
Check "DicKeyExists missing", t.DicKeyExists(dic, "B"), False
Set nothingThere = Nothing
Check "DicKeyExists without a dictionary", t.DicKeyExists(nothingThere, "A"), False

' Any Long passes where an enumeration is declared: a mode the document does not know gives no
' text, an unknown status adds a normal component, and variables holding values out of range
' are read and written back whole.
Dim odd, oddName, oddStatus, oddType
Set odd = CreateObject("Varnex.Transport")
Check "an unknown transport mode", odd.GenerateTransportDoc(99), ""
Call odd.AddComponent(0, "Odd", 7)
Check "an unknown status", odd.GetComponentStatus(1), 0
oddStatus = -32768
oddType = 2147483647
Check "out-of-range variables", odd.GetComponent(1, oddName, oddStatus, oddType), 1
Check "written back", oddName & " " & oddStatus & " " & oddType, "ODD 0 0"

Finish
