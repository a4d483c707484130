// Handles in both directions: handle -> name element, name element -> handle.
//
// Handles are issued densely from one counter, so the forward direction is a flat array indexed
// by handle; the reverse one is a flat map keyed by the element's address. Entries are never
// pruned: a handle whose component was cut out of the document still names that (detached)
// element.
#pragma once

#include <vector>

#include <pugixml.hpp>

#include "transport/node_map.hpp"
#include "varnex/types.hpp"

namespace varnex {

class HandleTable {
 public:
  void Clear() {
    nodes_.clear();
    handles_.Clear();
  }

  // Makes room for `count` handles without growing again.
  void Reserve(std::size_t count) {
    nodes_.reserve(count + 1);
    handles_.Reserve(count);
  }

  // Records the handle of a name element.
  void Add(Long handle, pugi::xml_node node) {
    if (handle >= static_cast<Long>(nodes_.size())) nodes_.resize(static_cast<std::size_t>(handle) + 1);
    nodes_[static_cast<std::size_t>(handle)] = node;
    if (!node) return;
    bool made = false;
    handles_.Find(node.internal_object(), made) = handle;
  }

  // The element of a handle; empty when the handle names no element.
  pugi::xml_node NodeOf(Long handle) const {
    if (handle <= 0 || handle >= static_cast<Long>(nodes_.size())) return {};
    return nodes_[static_cast<std::size_t>(handle)];
  }

  // The handle of an element; 0 when it has none.
  Long HandleOf(pugi::xml_node node) const {
    const Long* handle = handles_.Get(node.internal_object());
    return handle ? *handle : 0;
  }

 private:
  std::vector<pugi::xml_node> nodes_;
  NodeMap<Long> handles_;
};

}  // namespace varnex
