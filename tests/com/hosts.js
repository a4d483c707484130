// JScript calls differently from VBScript: a property get as a method, an argument-less method
// as a property get, and a collection's enumerator by a method call of DISPID -4.

var dc = new ActiveXObject("Varnex.DataCollection");
dc.Data = "<R><COLLECTION><L><COMPONENT><I><PROPERTIES><A>1</A><B>2</B></PROPERTIES></I></COMPONENT>" +
          "<COMPONENT><I><PROPERTIES><A>3</A><B>4</B></PROPERTIES></I></COMPONENT></L></COLLECTION></R>";
check("Count as a property", dc.Count, 2);
var row = dc.Item(1);
check("Item called as a method", row.Item("a"), "1");
check("PropertyNames called as a method", dc.PropertyNames(2), "B");

var values = [];
for (var items = new Enumerator(dc); !items.atEnd(); items.moveNext()) {
  for (var cells = new Enumerator(items.item()); !cells.atEnd(); cells.moveNext()) values.push(cells.item());
}
check("Enumerator over the items and their values", values.join(","), "1,2,3,4");

var t = new ActiveXObject("Varnex.Transport");
check("a method without arguments as a property", t.CountDomains, 0);
check("a property get called as a method", t.RootName(), "TALVEN");
t.AddComponent(0, "Site");
check("an omitted optional argument", t.CountCompChildren(0), 1);

finish();
