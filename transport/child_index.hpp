// The children of every parent, in document order: first those that are not deleted, then the
// deleted ones. Built in one pass over the document and read in constant time.
//
// The index answers like the platform's keyed lists: a read of a missing (parent, k) key yields
// handle 0 and leaves the key behind, so that a later existence test finds it until the next
// rebuild.
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "varnex/types.hpp"

namespace varnex {

class ChildIndex {
 public:
  struct Entry {
    Long parent;  // 0 for the root
    Long child;   // 0 when the child element has no handle
    bool deleted;
  };

  // Replaces the index with the entries, given in document order; parents lie in 0..max_handle.
  void Build(const std::vector<Entry>& entries, Long max_handle);

  Long LiveCount(Long parent) const { return Count(live_, parent); }
  Long DeletedCount(Long parent) const { return Count(deleted_, parent); }

  // True when the k-th live child exists, or when a read left the key behind.
  bool LiveExists(Long parent, Long k) const;
  // The k-th live child; a missing key reads as 0 and is left behind.
  Long LiveItem(Long parent, Long k);
  // The k-th deleted child; 0 when missing.
  Long DeletedItem(Long parent, Long k) const { return At(deleted_, parent, k); }

 private:
  struct Lists {
    std::vector<std::uint32_t> start;  // per parent: offset into children, one extra at the end
    std::vector<Long> children;
  };
  static Long Count(const Lists& lists, Long parent);
  static Long At(const Lists& lists, Long parent, Long k);
  static std::uint64_t KeyOf(Long parent, Long k);

  Lists live_;
  Lists deleted_;
  std::unordered_set<std::uint64_t> left_behind_;
};

}  // namespace varnex
