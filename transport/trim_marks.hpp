// What the reduction of a document would remove, recorded without changing the document.
#pragma once

#include <cstring>

#include <pugixml.hpp>

#include "transport/node_map.hpp"

namespace varnex {

struct TrimMarks {
  NodeSet removed;  // nodes the reduction removes
  NodeSet changed;  // nodes that lose a descendant
};

// A processing instruction named "xml" in any case: an attached declaration. Loading refuses it
// anywhere but at the top, so a document whose text holds one does not load.
inline bool ReadsAsDeclaration(pugi::xml_node node) {
  if (node.type() != pugi::node_pi) return false;
  const char* name = node.name();
  return std::strlen(name) == 3 && (name[0] | ' ') == 'x' && (name[1] | ' ') == 'm' && (name[2] | ' ') == 'l';
}

}  // namespace varnex
