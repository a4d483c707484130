// A script host's own DOM document, trimmed in place by TrimDocument and TrimDocument2: the same
// reduction as the short generated form of the same document. (wine's VBScript cannot create an
// MSXML document, so this suite is JScript; JScript passes no variable by reference, so the kill
// flag is checked by the compiled client.)

// A normal leaf under a component, a new component with a prototype and three attachments.
var text = "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES>" +
           "<COMPONENT><B><PROPERTIES/></B></COMPONENT></A></COMPONENT><COMPONENT><C STATUS=\"NEW\">" +
           "<PROPERTIES/><PROTOTYPE/><ATTACHMENTS><P persist=\"TRUE\"/><Q/><R persist=\"no\"/></ATTACHMENTS>" +
           "</C></COMPONENT></TALVEN>";
function load() {
  var dom = new ActiveXObject("Msxml2.DOMDocument.6.0");
  dom.loadXML(text);
  return dom;
}
function count(dom, path) { return dom.selectNodes(path).length; }
// The wrappers under the root as the short form writes them (wine's DOM indents its output).
function shortForm(dom) {
  var xml = "", wrappers = dom.selectNodes("/TALVEN/COMPONENT | /TALVEN/COLLECTION");
  for (var i = 0; i < wrappers.length; i++) xml += wrappers.item(i).xml;
  return "<TALVEN>" + xml.replace(/[\r\n\t]/g, "") + "</TALVEN>";
}

var t = new ActiveXObject("Varnex.Transport");
var dom = load();
t.TrimDocument(dom, dom.documentElement, false);
check("the normal leaf goes", count(dom, "//B"), 0);
check("its parent stays", count(dom, "/TALVEN/COMPONENT/A/PROPERTIES/X"), 1);
check("the prototype goes", count(dom, "//PROTOTYPE"), 0);
check("the first attachment without persist goes", count(dom, "//ATTACHMENTS/Q"), 0);
check("only one attachment per call", count(dom, "//ATTACHMENTS/R"), 1);
// The core's own document, trimmed here, reads as the short form the core generates from it.
var core = new ActiveXObject("Varnex.Transport");
core.TransportDoc = text;
var own = new ActiveXObject("Msxml2.DOMDocument.6.0");
own.loadXML(core.GenerateTransportDoc(0));
t.TrimDocument(own, own.documentElement, false);
check("the same as the core's short form", shortForm(own), core.GenerateTransportDoc(1));

dom = load();
t.TrimDocument2(dom, dom.documentElement, false);
check("TrimDocument2 keeps every component", count(dom, "//B"), 1);
check("TrimDocument2 keeps an attachment without persist", count(dom, "//ATTACHMENTS/Q"), 1);
check("TrimDocument2 strips one that says otherwise", count(dom, "//ATTACHMENTS/R"), 0);
check("TrimDocument2 strips the prototype", count(dom, "//PROTOTYPE"), 0);

dom = new ActiveXObject("Msxml2.DOMDocument.6.0");
dom.loadXML("<R><COMPONENT/></R>");
try {
  t.TrimDocument(dom, dom.documentElement, false);
  check("a wrapper without a component fails", "no error", "an error");
} catch (e) {
  check("a wrapper without a component fails one level down", e.description,
        "TrimDocument: TrimDocument: Object variable or With block variable not set");
}

finish();
