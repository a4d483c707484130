// Handles in both directions: handle -> name element, name element -> handle.
//
// Handles are issued densely from one counter, so the forward direction is a flat array indexed
// by handle. Entries are never pruned: a handle whose component was cut out of the document still
// names that (detached) element.
#pragma once

#include <unordered_map>
#include <vector>

#include <pugixml.hpp>

#include "varnex/types.hpp"

namespace varnex {

class HandleTable {
 public:
  void Clear() {
    nodes_.clear();
    handles_.clear();
  }

  // Records the handle of a name element.
  void Add(Long handle, pugi::xml_node node) {
    if (handle >= static_cast<Long>(nodes_.size())) nodes_.resize(static_cast<std::size_t>(handle) + 1);
    nodes_[static_cast<std::size_t>(handle)] = node;
    handles_[node.internal_object()] = handle;
  }

  // The element of a handle; empty when the handle names no element.
  pugi::xml_node NodeOf(Long handle) const {
    if (handle <= 0 || handle >= static_cast<Long>(nodes_.size())) return {};
    return nodes_[static_cast<std::size_t>(handle)];
  }

  // The handle of an element; 0 when it has none.
  Long HandleOf(pugi::xml_node node) const {
    const auto found = handles_.find(node.internal_object());
    return found == handles_.end() ? 0 : found->second;
  }

 private:
  std::vector<pugi::xml_node> nodes_;
  std::unordered_map<const void*, Long> handles_;
};

}  // namespace varnex
