#include "transport/node_status.hpp"

#include <cstring>

#include "runtime/text.hpp"

namespace varnex {

enComponentStatus GetNodeStatus(pugi::xml_node node) {
  if (!node) return csNormal;
  return StatusOfText(node.attribute("STATUS").value());
}

enComponentStatus StatusOfText(std::string_view text) {
  // The written forms first, without a copy.
  if (text.empty()) return csNormal;
  if (text == "NEW") return csNew;
  if (text == "DELETED") return csDeleted;
  if (text == "MODIFIED") return csModified;
  const std::string status = UCase(TrimBlanks(text));
  if (status == "NEW") return csNew;
  if (status == "DELETED") return csDeleted;
  if (status == "MODIFIED") return csModified;
  return csNormal;
}

const char* StatusText(Long status) {
  switch (status) {
    case csModified: return "MODIFIED";
    case csNew: return "NEW";
    case csDeleted: return "DELETED";
    default: return nullptr;
  }
}

void WriteStatus(pugi::xml_node node, Long status) {
  if (const char* text = StatusText(status)) SetAttribute(node, "STATUS", text);
}

void ClearPropertyMarks(pugi::xml_node component) {
  for (pugi::xml_node list = component.first_child(); list; list = list.next_sibling()) {
    if (list.type() != pugi::node_element || std::strcmp(list.name(), "PROPERTIES") != 0) continue;
    for (pugi::xml_node property = list.first_child(); property; property = property.next_sibling()) {
      if (property.type() != pugi::node_element) continue;
      property.remove_attribute("STATUS");
      property.remove_attribute("ORIGINAL");
    }
  }
}

void SetAttribute(pugi::xml_node node, const char* name, const char* value) {
  pugi::xml_attribute attribute = node.attribute(name);
  if (!attribute) attribute = node.append_attribute(name);
  attribute.set_value(value);
}

}  // namespace varnex
