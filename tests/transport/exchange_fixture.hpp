// Test documents for the exchange operations, written as text.
//
// Adopt() puts the components of a text into a Transport's own document exactly as written
// (statuses of collections, attribute order and stray nodes included) and gives every component
// and collection a handle in document order, as loading would.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "runtime/xml.hpp"
#include "transport/transport_impl.hpp"
#include "varnex/varnex.hpp"

namespace varnex::testing {

inline void Adopt(Transport& transport, const std::string& text) {
  Transport::Impl& impl = transport.impl();
  pugi::xml_document incoming;
  ASSERT_TRUE(xml::LoadText(incoming, text)) << text;
  for (pugi::xml_node child = incoming.document_element().first_child(); child; child = child.next_sibling()) {
    impl.document->AppendCopy(impl.root, child);
  }
  xml::WalkElements(impl.root, [&](pugi::xml_node element) {
    if (xml::LocalNameIs(element, "ATTACHMENTS")) return false;
    if ((xml::ElementNamed(element, "COMPONENT") || xml::ElementNamed(element, "COLLECTION")) &&
        element.first_child().type() == pugi::node_element) {
      impl.IssueHandle(element.first_child());
    }
    return true;
  });
  impl.child_indexes_dirty = true;
  impl.prop_indexes_dirty = true;
}

// The whole document without the empty domain sections of a new object, for short comparisons.
inline std::string Components(Transport& transport) {
  std::string text = transport.GenerateTransportDoc(tmFull);
  const std::string sections = "<DOMAIN/><PROPERTY_DOMAINS/>";
  if (const auto at = text.find(sections); at != std::string::npos) text.erase(at, sections.size());
  return text;
}

// Appends a property the way the property operations write one (value kept as text, blanks
// preserved).
inline void AddProperty(Transport& transport, Long handle, const std::string& name, const std::string& value) {
  Transport::Impl& impl = transport.impl();
  const pugi::xml_node element = impl.NodeOf(handle);
  pugi::xml_node list = element.child("PROPERTIES");
  if (!list) list = impl.document->AppendElement(element, "PROPERTIES");
  pugi::xml_node property = impl.document->AppendElement(list, name);
  property.append_attribute("xml:space").set_value("preserve");
  impl.document->SetText(property, value);
  impl.prop_indexes_dirty = true;
}

// The error that `body` raises (number 0 when it raises none).
template <typename Body>
AutomationError Failure(Body&& body) {
  try {
    body();
  } catch (const AutomationError& error) {
    return error;
  }
  return AutomationError(0, "", "");
}

// Number of times `part` occurs in `text`.
inline std::size_t Occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

}  // namespace varnex::testing
