// A script host's own DOM document, trimmed in place by TrimDocument: the same reduction as the
// short generated form of the same document. (wine's VBScript cannot create an MSXML document, so
// this suite is JScript; both trims, the kill flag and the errors are checked by the compiled client.)
var text = "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES>" +
           "<COMPONENT><B><PROPERTIES/></B></COMPONENT></A></COMPONENT><COMPONENT><C STATUS=\"NEW\">" +
           "<PROPERTIES/><PROTOTYPE/><ATTACHMENTS><P persist=\"TRUE\"/><Q/><R persist=\"no\"/></ATTACHMENTS>" +
           "</C></COMPONENT></TALVEN>";
var core = new ActiveXObject("Varnex.Transport");
core.TransportDoc = text;
var dom = new ActiveXObject("Msxml2.DOMDocument.6.0");
dom.loadXML(core.GenerateTransportDoc(0));
core.TrimDocument(dom, dom.documentElement, false);

// The wrappers under the root as the short form writes them (wine's DOM indents its output).
var xml = "", wrappers = dom.selectNodes("/TALVEN/COMPONENT | /TALVEN/COLLECTION");
for (var i = 0; i < wrappers.length; i++) xml += wrappers.item(i).xml;
check("the same as the core's short form", "<TALVEN>" + xml.replace(/[\r\n\t]/g, "") + "</TALVEN>",
      core.GenerateTransportDoc(1));

finish();
