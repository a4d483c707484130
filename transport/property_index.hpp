// The property nodes of every component: the child nodes of its "PROPERTIES" element, numbered
// from 1. Kept up node by node as properties are added, or built in one pass over the document.
//
// The lists share one array. A list grows in place while it is the last one in the array (the
// usual case: a component's properties are added together) and otherwise moves to the end with
// room to spare; the space left behind is reclaimed once it outweighs the lists in use.
#pragma once

#include <cstdint>
#include <vector>

#include <pugixml.hpp>

#include "varnex/types.hpp"

namespace varnex {

class PropertyIndex {
 public:
  // Empties the index.
  void Reset();
  // Records the child nodes of a "PROPERTIES" element under the handle of its component
  // (0 when the component has no handle). Error 457 when that handle already has a list.
  void AddList(Long handle, pugi::xml_node properties);
  // Records a component's property nodes, given in order, as AddList does for their element.
  void AddNodes(Long handle, const pugi::xml_node* nodes, std::size_t count);
  // Makes room for lists up to `last_handle` and `nodes` property nodes in all.
  void Reserve(Long last_handle, std::size_t nodes);
  // Starts an empty list for a component that has none.
  void StartList(Long handle);
  // Adds a node at the end of a component's list; nothing when it has none.
  void Append(Long handle, pugi::xml_node property);
  // The component's list goes.
  void Drop(Long handle);

  // Number of lists recorded for components without a handle (a second one cannot be recorded).
  Long Unkeyed() const { return unkeyed_; }
  bool Listed(Long handle) const;
  Long Count(Long handle) const;
  // The k-th property node; empty when there is none.
  pugi::xml_node At(Long handle, Long k) const;

 private:
  struct List {
    std::uint32_t start = 0;     // offset into nodes_
    std::uint32_t count = 0;     // number of property nodes
    std::uint32_t capacity = 0;  // room reserved at start
    bool listed = false;
  };
  List* ListOf(Long handle);
  const List* ListOf(Long handle) const;
  void Reclaim();

  std::vector<List> lists_;  // per handle
  std::vector<pugi::xml_node> nodes_;
  std::size_t unused_ = 0;   // slots of nodes_ that no list holds
  Long unkeyed_ = 0;
};

}  // namespace varnex
