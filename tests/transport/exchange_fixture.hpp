// Test documents for the exchange operations.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "runtime/xml.hpp"
#include "transport/transport_impl.hpp"
#include "varnex/varnex.hpp"

namespace varnex::testing {

// Puts the components of "<TALVEN>...</TALVEN>" into the document exactly as written and gives
// every component and collection a handle, in document order.
inline void Adopt(Transport& transport, const std::string& components) {
  Transport::Impl& impl = transport.impl();
  pugi::xml_document incoming;
  ASSERT_TRUE(xml::LoadText(incoming, "<TALVEN>" + components + "</TALVEN>"));
  for (pugi::xml_node child : incoming.document_element().children()) {
    xml::WalkElements(impl.document->AppendCopy(impl.root, child), [&](pugi::xml_node element) {
      if (xml::LocalNameIs(element, "ATTACHMENTS")) return false;
      const bool wrapper = xml::LocalNameIs(element, "COMPONENT") || xml::LocalNameIs(element, "COLLECTION");
      if (wrapper && element.first_child().type() == pugi::node_element) impl.IssueHandle(element.first_child());
      return true;
    });
  }
  impl.child_indexes_dirty = impl.prop_indexes_dirty = true;
}

// Appends a property as the property operations write one.
inline void AddProperty(Transport& transport, Long handle, const std::string& name, const std::string& value) {
  Transport::Impl& impl = transport.impl();
  const pugi::xml_node element = impl.NodeOf(handle);
  pugi::xml_node list = element.child("PROPERTIES");
  if (!list) list = impl.document->AppendElement(element, "PROPERTIES");
  pugi::xml_node property = impl.document->AppendElement(list, name);
  property.append_attribute("xml:space").set_value("preserve");
  impl.document->SetText(property, value);
}

// The components as they stand, without the root and the domain sections.
inline std::string Components(Transport& transport) {
  std::string text;
  for (pugi::xml_node child : transport.impl().root.children()) {
    if (xml::LocalNameIs(child, "COMPONENT") || xml::LocalNameIs(child, "COLLECTION")) xml::SerializeTo(child, text);
  }
  return text;
}

// The error that `body` raises (number 0 when none).
template <typename Body>
AutomationError Failure(Body&& body) {
  try {
    body();
  } catch (const AutomationError& error) {
    return error;
  }
  return AutomationError(0, "", "");
}

inline std::size_t Occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

}  // namespace varnex::testing
