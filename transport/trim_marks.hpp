// What the reduction of a document would remove, recorded without changing the document.
#pragma once

#include <unordered_set>

#include <pugixml.hpp>

namespace varnex {

struct TrimMarks {
  std::unordered_set<pugi::xml_node_struct*> removed;  // nodes the reduction removes
  std::unordered_set<pugi::xml_node_struct*> changed;  // nodes that lose a descendant
};

}  // namespace varnex
