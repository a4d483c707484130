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

// GetCompChild's answer as "handle NAME status type"; what it leaves unwritten reads "-7".
inline std::string ChildOf(Transport& t, Long parent, Long k, Boolean ignore_deletes = vbFalse) {
  std::string name = "unchanged";
  auto status = static_cast<enComponentStatus>(-7);
  auto type = static_cast<enComponentType>(-7);
  const Long handle = t.GetCompChild(parent, k, name, status, type, ignore_deletes);
  return std::to_string(handle) + " " + name + " " + to_string(status) + " " + to_string(type);
}

// GetComponent's answer in the same form.
inline std::string ComponentOf(Transport& t, Long handle) {
  std::string name;
  auto status = static_cast<enComponentStatus>(-7);
  auto type = static_cast<enComponentType>(-7);
  const Long answer = t.GetComponent(handle, name, status, type);
  return std::to_string(answer) + " " + name + " " + to_string(status) + " " + to_string(type);
}

// Whether the text loads as a document.
inline bool Loads(const std::string& text) {
  pugi::xml_document parsed;
  return xml::LoadText(parsed, text);
}

// A component's properties through the range, as "position NAME=value/original/status;" each.
inline std::string PropertiesOf(Transport& transport, Long handle) {
  std::string text;
  for (const PropertyInfo& p : transport.Properties(handle)) {
    text += std::to_string(p.position) + " " + p.name + "=" + p.value + "/" + p.original + "/" + to_string(p.status) + ";";
  }
  return text;
}

inline std::size_t Occurrences(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

}  // namespace varnex::testing
