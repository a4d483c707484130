// The children of every parent, in document order: first those that are not deleted, then the
// deleted ones. Kept up entry by entry as the document changes, or built in one pass over it.
//
// Each parent has one list of its children in document order, each child marked live, deleted
// or gone (cut out of the document since the list was built). A list whose children are all live
// is read directly; once a list holds any other mark, two counting trees over its positions find
// the k-th live or deleted child in logarithmic time, and follow every change of mark.
//
// The index answers like the platform's keyed lists: a read of a missing (parent, k) key yields
// handle 0 and leaves the key behind, so that a later existence test finds it until the next
// rebuild.
#pragma once

#include <cstdint>
#include <memory>
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

  // Replaces the index with the entries, given in document order.
  void Build(const std::vector<Entry>& entries);

  // Adds a child at the end of its parent's list.
  void Append(Long parent, Long child, bool deleted);
  // Marks a child deleted or live; nothing when it has no entry.
  void SetDeleted(Long child, bool deleted);
  // The child leaves its parent's list; nothing when it has no entry.
  void Remove(Long child);
  // The parent's list empties; its children lose their entries.
  void ClearChildrenOf(Long parent);
  // Forgets the keys that reads left behind, as a rebuild does.
  void ForgetReads();

  Long LiveCount(Long parent) const;
  Long DeletedCount(Long parent) const;

  // True when the k-th live child exists, or when a read left the key behind.
  bool LiveExists(Long parent, Long k) const;
  // The k-th live child; a missing key reads as 0 and is left behind.
  Long LiveItem(Long parent, Long k);
  // The k-th live child; 0 when missing, leaving nothing behind.
  Long LiveAt(Long parent, Long k) const;
  // The k-th deleted child; 0 when missing.
  Long DeletedItem(Long parent, Long k) const;

 private:
  enum Mark : std::uint8_t { kLive, kDeleted, kGone };
  struct Child {
    Long handle;
    Mark mark;
  };
  // Counts of one mark by position (a Fenwick tree), 1-based.
  class CountTree {
   public:
    void Assign(const std::vector<Child>& children, Mark mark);
    void Push(bool counted);
    void Add(std::size_t position, int delta);
    // The position (0-based) of the k-th counted child; k lies in 1..total.
    std::size_t Find(Long k) const;

   private:
    std::vector<std::uint32_t> tree_{0};
  };
  struct List {
    std::vector<Child> children;
    Long live = 0;
    Long deleted = 0;
    std::unique_ptr<CountTree[]> trees;  // live, deleted; made when the first child is not live
    bool AllLive() const { return static_cast<std::size_t>(live) == children.size(); }
  };
  struct Place {
    Long parent = -1;  // -1: the child has no entry
    std::uint32_t position = 0;
  };

  const List* ListOf(Long parent) const;
  List& ListFor(Long parent);
  static void Remark(List& list, std::size_t position, Mark mark);
  static void MakeTrees(List& list);
  static Long At(const List& list, Mark mark, Long k);
  static std::uint64_t KeyOf(Long parent, Long k);

  std::vector<std::uint32_t> list_of_;  // per parent handle: 1 + index into lists_, 0 for none
  std::vector<List> lists_;
  std::vector<Place> place_of_;  // per child handle
  std::unordered_set<std::uint64_t> left_behind_;
};

}  // namespace varnex
