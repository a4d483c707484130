' Run by tests/com/run, which puts support/checks.vbs (Check, CheckType, CheckError, Finish) first.
' Building and reading a document through every kind of parameter: results, in/out strings,
' enumerations and Booleans written back into the caller's variables, omitted optional ones.
Dim t, site, visits, visit, name, status, kind, value, original, ignore, persist, n
Set t = CreateObject("Varnex.Transport")

site = t.AddComponent(0, "Site")
CheckType "AddComponent answers a Long in a Variant", site, vbLong
Check "first handle", site, 1
visits = t.AddCollection(site, "Visits")
CheckType "AddCollection", visits, vbLong
visit = t.AddComponent(visits, "Visit", 2)
Check "AddComponent with a status", t.GetComponentStatus(visit), 2
CheckType "GetComponentStatus", t.GetComponentStatus(visit), vbLong

' Out parameters of GetComponent: a string and two enumerations, each typed on return.
name = "" : status = 0 : kind = 0
Check "GetComponent result", t.GetComponent(visits, name, status, kind), 1
Check "GetComponent name", name, "VISITS"
CheckType "GetComponent name", name, vbString
Check "GetComponent status", status, 0
CheckType "GetComponent status", status, vbLong
Check "GetComponent type", kind, 1
CheckType "GetComponent type", kind, vbLong
' Variables never assigned (Empty) work as well.
Dim fresh1, fresh2, fresh3
Call t.GetComponent(visit, fresh1, fresh2, fresh3)
Check "GetComponent into Empty variables", fresh1 & "," & fresh2 & "," & fresh3, "VISIT,2,0"

' GetCompChild with the optional in/out Boolean omitted and given.
Check "GetCompChild", t.GetCompChild(visits, 1, name, status, kind), visit
Check "GetCompChild name", name, "VISIT"
ignore = True
Check "GetCompChild ignoring deletes", t.GetCompChild(visits, 1, name, status, kind, ignore), visit
CheckType "GetCompChild Boolean written back", ignore, vbBoolean
Check "CountCompChildren omitted flag", t.CountCompChildren(visits), 1
CheckType "CountCompChildren", t.CountCompChildren(visits), vbLong
Check "CountCompChildren given flag", t.CountCompChildren(visits, False), 1
Check "FindChildCompByName", t.FindChildCompByName(site, "visits"), visits
Check "ChildOfCollection", t.ChildOfCollection(visit), "VISITS"

' Properties: optional status and original omitted, then given.
Check "AddCompProperty", t.AddCompProperty(visit, "Result", "Pass"), 1
Call t.AddCompProperty(visit, "Score", "7", 1, "5")
Check "CountCompProperties", t.CountCompProperties(visit), 2
Check "FindCompPropertyByName", t.FindCompPropertyByName(visit, "score"), 2
value = "" : status = 0 : original = ""
Check "GetCompProperty name", t.GetCompProperty(visit, 2, value, status, original), "SCORE"
Check "GetCompProperty value", value, "7"
Check "GetCompProperty status", status, 1
Check "GetCompProperty original", original, "5"
CheckType "GetCompProperty status", status, vbLong
Check "GetCompPropStatus", t.GetCompPropStatus(visit, 2), 1

' ModifyCompProperty answers a Boolean.
Dim other
other = t.AddComponent(0, "Other")
Call t.AddCompProperty(other, "Colour", "red")
Check "ModifyCompProperty", t.ModifyCompProperty(other, 1, "blue"), True
CheckType "ModifyCompProperty", t.ModifyCompProperty(other, 1, "green"), vbBoolean
Call t.GetCompProperty(other, 1, value, status, original)
Check "modified value", value, "green"
Check "modified status", status, 1
Check "kept original", original, "red"
Check "component marked modified", t.GetComponentStatus(other), 1

' Attributes and attachments; the optional in/out blnPersist omitted and given.
Check "AddCompAttribute", t.AddCompAttribute(site, "Code", "S1"), True
Check "GetCompAttribute", t.GetCompAttribute(site, "Code"), "S1"
Check "AddCompAttachment omitted flag", t.AddCompAttachment(site, "<NOTE>hello</NOTE>"), True
persist = True
Check "AddCompAttachment persisted", t.AddCompAttachment(visit, "<MAP x=""1""/>", persist), True
CheckType "AddCompAttachment", t.AddCompAttachment(site, "<EXTRA/>"), vbBoolean
Check "GetCompAttachment", t.GetCompAttachment(site, "NOTE"), "<NOTE>hello</NOTE>"
Check "GetComponentXML holds the attachment", InStr(t.GetComponentXML(site), "<NOTE>hello</NOTE>") > 0, True

' Booleans reach the core as their 16-bit value: -1 and 1 stay distinct. CountCompChildren leaves
' deleted children out only for True (-1); 1 counts them all.
Dim parent, kept, gone
parent = t.AddComponent(0, "Parent")
kept = t.AddComponent(parent, "Kept")
gone = t.AddComponent(parent, "Gone")
Call t.ResetStatus
Call t.DeleteComponent(gone)
Check "deleted child marked", t.GetComponentStatus(gone), 3
Check "CountCompChildren with True", t.CountCompChildren(parent, True), 1
Check "CountCompChildren with -1", t.CountCompChildren(parent, -1), 1
Check "CountCompChildren with 1", t.CountCompChildren(parent, 1), 2
Check "CountCompChildren with False", t.CountCompChildren(parent, False), 2
CheckType "DeleteComponent", t.DeleteComponent(t.AddComponent(0, "Third")), vbBoolean

' RemoveComponentStatus answers Empty.
Check "RemoveComponentStatus", IsEmpty(t.RemoveComponentStatus(visit)), True
Check "status removed", t.GetComponentStatus(visit), 0

' Domains and links, with out parameters.
Dim domain, item, code, desc, domainName
domain = t.AddDomain("Colours", "C", "The colours")
Check "AddDomain", domain, 1
Check "AddDomain omitted code and description", t.AddDomain("Sizes"), 2
Check "CountDomains", t.CountDomains, 2
item = t.AddDomainItem(domain)
Check "AddDomainItem", item, 1
Check "AddDomainProperty", t.AddDomainProperty(domain, item, "Name", "Red"), 1
Check "CountDomItems", t.CountDomItems(domain), 1
Check "CountDomItemProperties", t.CountDomItemProperties(domain, item), 1
Check "DomainExists", t.DomainExists("colours"), True
CheckType "DomainExists", t.DomainExists("None"), vbBoolean
domainName = "Colours"
Check "FindDomainByName", t.FindDomainByName(domainName), domain
Check "FindDomainByName leaves its argument", domainName, "Colours"
code = "" : desc = ""
Check "GetDomain", t.GetDomain(domain, code, desc), "COLOURS"
Check "GetDomain code", code, "C"
Check "GetDomain description", desc, "The colours"
Check "GetDomItemProperty", t.GetDomItemProperty(domain, item, 1, value), "NAME"
Check "GetDomItemProperty value", value, "Red"
Check "FindDomItemPropByName", t.FindDomItemPropByName(domain, item, "name"), 1
Dim link, linked
link = t.AddPropDomain("Colour", "Colours")
Check "AddPropDomain", link > 0, True
Check "CountPropDomains", t.CountPropDomains, 1
Check "FindPropDomainByPropName", t.FindPropDomainByPropName("Colour"), link
Check "GetPropDomain", t.GetPropDomain(link, linked), "COLOUR"
Check "GetPropDomain domain", linked, "Colours"

' The prototype properties come back as a real Scripting.Dictionary.
Dim protos
Check "AddCompPrototypeProperty", t.AddCompPrototypeProperty(visits, "Result", "Pass"), True
Check "AddCompPrototypeProperty omitted value", t.AddCompPrototypeProperty(visits, "Notes"), True
Set protos = t.GetCompPrototypeProperties(visits)
Check "prototype count", protos.Count, 2
Check "prototype value", protos.Item("RESULT"), "Pass"
Check "prototype without value", protos.Item("NOTES"), ""
Dim keys
keys = protos.Keys
Check "prototype keys in order", keys(0) & "," & keys(1), "RESULT,NOTES"
protos.Add "Mine", 1
Check "the dictionary is the caller's own", protos.Exists("Mine"), True

' DicKeyExists asks the caller's dictionary.
Dim dic
Set dic = CreateObject("Scripting.Dictionary")
dic.Add "A", 1
Check "DicKeyExists present", t.DicKeyExists(dic, "A"), True
Check "DicKeyExists missing", t.DicKeyExists(dic, "B"), False
CheckType "DicKeyExists", t.DicKeyExists(dic, "A"), vbBoolean
Dim nothingThere
Set nothingThere = Nothing
Check "DicKeyExists without a dictionary", t.DicKeyExists(nothingThere, "A"), False

' Generation and loading.
Dim full, copy
full = t.GenerateTransportDoc(0)
Check "TransportDoc is the full document", t.TransportDoc, full
Set copy = CreateObject("Varnex.Transport")
copy.TransportDoc = "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><AREA STATUS=""NEW""><PROPERTIES>" & _
  "<SIZE>12</SIZE></PROPERTIES></AREA></COMPONENT></SURVEY>"
Check "the loaded root name", copy.RootName, "SURVEY"
Check "the loaded component", copy.GetComponentStatus(copy.FindChildCompByName(0, "AREA")), 2
Check "a loaded document is given out whole", copy.TransportDoc, copy.GenerateTransportDoc(0)
Check "the short form holds the new component", InStr(copy.GenerateTransportDoc(1), "<SIZE") > 0, True
Check "ResetStatus", t.ResetStatus, 0

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
