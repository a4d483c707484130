// The property nodes of every component: the child nodes of its "PROPERTIES" element, numbered
// from 1. Built in one pass over the document; remembers the structure version it was built
// from, so that a rebuild after changes that moved no node can be skipped.
#pragma once

#include <cstdint>
#include <vector>

#include <pugixml.hpp>

#include "varnex/types.hpp"

namespace varnex {

class PropertyIndex {
 public:
  // Empties the index for handles 1..max_handle.
  void Reset(Long max_handle);
  // Records the child nodes of a "PROPERTIES" element under the handle of its component
  // (0 when the component has no handle). Error 457 when that handle already has a list.
  void AddList(Long handle, pugi::xml_node properties);
  // Marks the index as built from the given structure version.
  void MarkBuilt(std::uint64_t version) {
    built_ = true;
    version_ = version;
  }
  bool IsCurrent(std::uint64_t version) const { return built_ && version_ == version; }

  Long Count(Long handle) const;
  // The k-th property node; empty when there is none.
  pugi::xml_node At(Long handle, Long k) const;

 private:
  struct List {
    std::uint32_t start = 0;  // offset into nodes_
    std::uint32_t count = 0;  // number of property nodes
  };
  std::vector<List> lists_;           // per handle, side by side so that a lookup touches one line
  std::vector<bool> listed_;          // per handle: a list was recorded
  bool listed_without_handle_ = false;
  std::vector<pugi::xml_node> nodes_;
  bool built_ = false;
  std::uint64_t version_ = 0;
};

}  // namespace varnex
