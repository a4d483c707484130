// Attachments: XML fragments supplied by the caller, kept under a component's "ATTACHMENTS"
// element, optionally marked to persist through the reduced documents.
#include <cstring>

#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {
namespace {

// The node that goes into "ATTACHMENTS" for the first node of a loaded fragment. An XML
// declaration cannot stand inside an element, so it travels as the processing instruction that
// reads the same ("<?xml version="1.0"?>"), built beside it in the working document.
pugi::xml_node AttachableNode(pugi::xml_document& fragment, pugi::xml_node first) {
  if (first.type() != pugi::node_declaration) return first;
  std::string value;
  for (pugi::xml_attribute attribute : first.attributes()) {
    if (!value.empty()) value += ' ';
    value += attribute.name();
    value += "=\"";
    value += attribute.value();
    value += '"';
  }
  pugi::xml_node instruction = fragment.insert_child_after(pugi::node_pi, first);
  instruction.set_name("xml");
  instruction.set_value(value.c_str());
  return instruction;
}

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
    xml::XmlDocument& doc = impl_->Document();
    const pugi::xml_node element = impl_->NodeOf(lngHandle);
    pugi::xml_node attachments = xml::ChildElement(element, "ATTACHMENTS");
    if (!attachments) attachments = doc.AppendElement(element, "ATTACHMENTS");

    pugi::xml_document fragment;
    if (!xml::LoadText(fragment, strXml)) throw AutomationError::Class("Transport", "Invalid XML supplied.");
    // The first node is taken as it stands, even a declaration or a comment before the element.
    const pugi::xml_node first = fragment.first_child();
    // Any non-zero value asks for persistence. Only an element can carry the mark; a comment or
    // declaration taken in its place is attached unmarked.
    if (blnPersist != vbFalse && first.type() == pugi::node_element) SetAttribute(first, "persist", "true");
    doc.AppendCopy(attachments, AttachableNode(fragment, first));
    return vbTrue;
  });
}

std::string Transport::GetCompAttachment(Long lngHandle, const std::string& strName) {
  return Trap{"GetCompAttachment"}.Run([&] {
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
