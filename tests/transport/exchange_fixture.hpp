// Test documents for the exchange operations.
#pragma once

#include <string>

#include <gtest/gtest.h>

#include "runtime/xml.hpp"
#include "support/errors.hpp"
#include "support/internals.hpp"
#include "varnex/varnex.hpp"

namespace varnex::testing {

// One of everything, the handles fixed by the order of the additions: component 1 "SITE" with the
// property "NAME", the free attribute "REGION" and the attachment "NOTE", collection 2 "VISITS"
// holding component 3, domain 1 "RESULT" whose item 1 has the property "CODE", and link 4 from "P".
constexpr Long kSite = 1, kVisits = 2, kVisit = 3;
inline void BuildSample(Transport& t) {
  t.AddComponent(0, "Site");
  t.AddCollection(kSite, "Visits");
  t.AddComponent(kVisits, "Visit");
  t.AddCompProperty(kSite, "NAME", "North");
  t.AddCompAttribute(kSite, "REGION", "east");
  t.AddCompAttachment(kSite, "<NOTE/>");
  t.AddDomainItem(t.AddDomain("RESULT"));
  t.AddDomainProperty(1, 1, "CODE", "P");
  t.AddPropDomain("P", "RESULT");
}

// Puts the components of "<TALVEN>...</TALVEN>" into the document exactly as written and gives
// every component and collection a handle, in document order.
inline void Adopt(Transport& transport, const std::string& components) {
  Transport::Impl& impl = testing::Internals(transport);
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

// The components as they stand, without the root and the domain sections.
inline std::string Components(Transport& transport) {
  std::string text;
  for (pugi::xml_node child : testing::Internals(transport).root.children()) {
    if (xml::LocalNameIs(child, "COMPONENT") || xml::LocalNameIs(child, "COLLECTION")) xml::SerializeTo(child, text);
  }
  return text;
}

// A component's element as text.
inline std::string Xml(Transport& transport, Long handle) { return xml::Serialize(Internals(transport).NodeOf(handle)); }

inline std::size_t Occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

}  // namespace varnex::testing
