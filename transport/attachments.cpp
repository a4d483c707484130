// Attachments: XML fragments supplied by the caller, kept under a component's "ATTACHMENTS"
// element, optionally marked to persist through the reduced documents.
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {
namespace {

// An attribute found by an XPath step, as the DOM serialises an attribute node.
std::string SerializeAttribute(pugi::xml_attribute attribute) {
  std::string out = attribute.name();
  out += "=\"";
  for (const char* c = attribute.value(); *c; ++c) {
    switch (*c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '"': out += "&quot;"; break;
      default: out += *c; break;
    }
  }
  out += '"';
  return out;
}

}  // namespace

Boolean Transport::AddCompAttachment(Long lngHandle, const std::string& strXml, Boolean blnPersist) {
  return Trap{"AddCompAttachment"}.Run([&] {
    RefuseNul(strXml);
    xml::XmlDocument& doc = impl_->Document();
    const pugi::xml_node element = impl_->NodeOf(lngHandle);
    pugi::xml_node attachments = xml::ChildElement(element, "ATTACHMENTS");
    if (!attachments) attachments = doc.AppendElement(element, "ATTACHMENTS");

    pugi::xml_document fragment;
    if (!xml::LoadText(fragment, strXml)) throw AutomationError::Class("Transport", "Invalid XML supplied.");
    // The first node is taken as it stands, even a comment or processing instruction before the
    // element; a declaration cannot go inside an element, and the append refuses it.
    const pugi::xml_node first = fragment.first_child();
    // Any non-zero value asks for persistence, which only an element can carry (438 otherwise).
    if (blnPersist != vbFalse) {
      if (first.type() != pugi::node_element) throw AutomationError::Runtime(errObjectDoesntSupport);
      SetAttribute(first, "persist", "true");
    }
    doc.AppendCopy(attachments, first);
    return vbTrue;
  });
}

std::string Transport::GetCompAttachment(Long lngHandle, const std::string& strName) {
  return Trap{"GetCompAttachment"}.Run([&] {
    RefuseNul(strName);
    const pugi::xml_node element = impl_->NodeOf(lngHandle);
    // The name is an XPath step: matched exactly, and free to be any expression that continues
    // the path.
    const pugi::xpath_node_set found = impl_->document->SelectNodes(element, "ATTACHMENTS/" + strName);
    if (found.empty()) throw AutomationError::Class("Transport", "Attachment not found.");
    const pugi::xpath_node first = found.first();
    if (first.attribute()) return SerializeAttribute(first.attribute());
    return xml::Serialize(first.node());
  });
}

}  // namespace varnex
