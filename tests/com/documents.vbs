' Run by tests/com/run, which puts support/checks.vbs (Check, CheckError, Finish) first.
' Every class by its ProgID, and every kind of parameter as a script passes it: results typed as
' Long, Boolean, String and Empty, in/out strings and enumerations written back into the caller's
' variables (Empty ones included), omitted optional ones taking their defaults, Booleans reaching
' the core as their 16-bit value, and the platform's objects (the prototype Dictionary, the
' caller's own dictionary, Nothing).
Dim progId, t, site, visits, visit, name, status, kind, value, original, answer
For Each progId In Array("Varnex.Transport", "Varnex.IDataCollection", "Varnex.DataCollection", _
                         "Varnex.DataCollectionProvider", "Varnex.DataCollectionSource")
  Check progId & " created", IsObject(CreateObject(progId)), True
Next
Check "an empty collection's item is Nothing", CreateObject("Varnex.IDataCollection").Item(1) Is Nothing, True

Set t = CreateObject("Varnex.Transport")
t.RootName = "SURVEY"
Check "a property put and get", t.RootName, "SURVEY"
site = t.AddComponent(0, "Site")
Check "AddComponent answers a Long in a Variant", TypeName(site) & " " & site, "Long 1"
visits = t.AddCollection(site, "Visits")
visit = t.AddComponent(visits, "Visit", 2)

' Out parameters: a string and two enumerations, from Empty variables to typed values.
Check "GetComponent", t.GetComponent(visits, name, status, kind) & ": " & TypeName(name) & " " & name & ", " & _
      TypeName(status) & " " & status & ", " & kind, "1: String VISITS, Long 0, 1"

' Optional status and original omitted (defaults), then given; all read back through out strings.
Call t.AddCompProperty(visit, "Result", "Pass")
Call t.AddCompProperty(visit, "Score", "7", 1, "5")
Check "GetCompProperty omitted", t.GetCompProperty(visit, 1, value, status, original) & "," & value & "," & status & "," & original, _
      "RESULT,Pass,0,"
Check "GetCompProperty given", t.GetCompProperty(visit, 2, value, status, original) & "," & value & "," & status & "," & original, _
      "SCORE,7,1,5"

' A Boolean result; an Empty one; an in/out string the core only reads comes back as it was.
answer = t.ModifyCompProperty(visit, 1, "Fail")
Check "ModifyCompProperty", TypeName(answer) & " " & (answer = True), "Boolean True"
Check "RemoveComponentStatus", IsEmpty(t.RemoveComponentStatus(visit)), True
Dim domainName
domainName = "Colours"
Check "AddDomain without code and description, FindDomainByName", _
      t.AddDomain("Colours") & " " & t.FindDomainByName(domainName) & " " & domainName, "1 1 Colours"

' Booleans reach the core as their 16-bit value: -1 and 1 stay distinct. CountCompChildren leaves
' deleted children out only for True (-1); 1 counts them all, and so does the flag left out, which
' a given one is written back beside.
Dim parent, ignore
parent = t.AddComponent(0, "Parent")
Call t.AddComponent(parent, "Kept")
Call t.ResetStatus
Call t.DeleteComponent(t.AddComponent(parent, "Gone"))
ignore = True
Check "CountCompChildren with True", t.CountCompChildren(parent, ignore) & " " & TypeName(ignore), "1 Boolean"
Check "CountCompChildren with 1", t.CountCompChildren(parent, 1), 2
Check "CountCompChildren omitted flag", t.CountCompChildren(parent), 2

' The prototype properties come back as a real Scripting.Dictionary of the caller's own.
Dim protos, keys, items
Call t.AddCompPrototypeProperty(visits, "Result", "Pass")
Call t.AddCompPrototypeProperty(visits, "Notes")
Set protos = t.GetCompPrototypeProperties(visits)
protos.Add "Mine", 1
keys = protos.Keys
items = protos.Items
Check "prototype dictionary", keys(0) & "," & keys(1) & "," & keys(2) & " = " & items(0) & "," & items(1) & "," & items(2), _
      "RESULT,NOTES,Mine = Pass,,1"

' DicKeyExists asks the caller's dictionary; Nothing answers False.
Dim dic, nothingThere
Set dic = CreateObject("Scripting.Dictionary")
dic.Add "A", 1
Set nothingThere = Nothing
Check "DicKeyExists", t.DicKeyExists(dic, "A") & " " & t.DicKeyExists(dic, "B") & " " & t.DicKeyExists(nothingThere, "A"), _
      "True False False"

' Any Long passes where an enumeration is declared: a mode the document does not know gives no
' text, an unknown status adds a normal component, and variables holding values out of range
' are read and written back whole.
Dim odd, oddName, oddStatus, oddType
Check "an unknown transport mode", t.GenerateTransportDoc(99), ""
odd = t.AddComponent(0, "Odd", 7)
Check "an unknown status", t.GetComponentStatus(odd), 0
oddStatus = -32768 : oddType = 2147483647
Check "out-of-range variables", t.GetComponent(odd, oddName, oddStatus, oddType) & " " & oddName & " " & oddStatus & " " & oddType, _
      "1 ODD 0 0"

Finish
