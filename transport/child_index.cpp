#include "transport/child_index.hpp"

#include <bit>

namespace varnex {

void ChildIndex::CountTree::Assign(const std::vector<Child>& children, Mark mark) {
  tree_.assign(children.size() + 1, 0);
  for (std::size_t i = 1; i < tree_.size(); ++i) {
    tree_[i] += children[i - 1].mark == mark ? 1 : 0;
    const std::size_t up = i + (i & (~i + 1));
    if (up < tree_.size()) tree_[up] += tree_[i];
  }
}

void ChildIndex::CountTree::Push(bool counted) {
  // The new node covers (i - lowbit(i), i]: its own count plus the nodes that end inside.
  const std::size_t i = tree_.size();
  std::uint32_t sum = counted ? 1 : 0;
  for (std::size_t below = i - 1, stop = i - (i & (~i + 1)); below > stop; below -= below & (~below + 1)) {
    sum += tree_[below];
  }
  tree_.push_back(sum);
}

void ChildIndex::CountTree::Add(std::size_t position, int delta) {
  for (std::size_t i = position + 1; i < tree_.size(); i += i & (~i + 1)) {
    tree_[i] = static_cast<std::uint32_t>(static_cast<int>(tree_[i]) + delta);
  }
}

std::size_t ChildIndex::CountTree::Find(Long k) const {
  const std::size_t size = tree_.size() - 1;
  std::size_t position = 0;
  auto rest = static_cast<std::uint32_t>(k);
  for (std::size_t step = std::bit_floor(size); step != 0; step >>= 1) {
    if (position + step <= size && tree_[position + step] < rest) {
      position += step;
      rest -= tree_[position];
    }
  }
  return position;
}

void ChildIndex::Build(const std::vector<Entry>& entries) {
  list_of_.clear();
  lists_.clear();
  place_of_.clear();
  // Handles are dense: one slot per entry, give or take the parents without one.
  place_of_.reserve(entries.size() + 1);
  list_of_.reserve(entries.size() + 1);
  for (const Entry& entry : entries) Append(entry.parent, entry.child, entry.deleted);
  ForgetReads();
}

const ChildIndex::List* ChildIndex::ListOf(Long parent) const {
  if (parent < 0 || static_cast<std::size_t>(parent) >= list_of_.size()) return nullptr;
  const std::uint32_t at = list_of_[static_cast<std::size_t>(parent)];
  return at == 0 ? nullptr : &lists_[at - 1];
}

ChildIndex::List& ChildIndex::ListFor(Long parent) {
  const auto p = static_cast<std::size_t>(parent);
  if (p >= list_of_.size()) list_of_.resize(p + 1, 0);
  if (list_of_[p] == 0) {
    lists_.emplace_back();
    list_of_[p] = static_cast<std::uint32_t>(lists_.size());
  }
  return lists_[list_of_[p] - 1];
}

void ChildIndex::MakeTrees(List& list) {
  list.trees = std::make_unique<CountTree[]>(2);
  list.trees[kLive].Assign(list.children, kLive);
  list.trees[kDeleted].Assign(list.children, kDeleted);
}

void ChildIndex::Append(Long parent, Long child, bool deleted) {
  if (parent < 0) return;
  List& list = ListFor(parent);
  const Mark mark = deleted ? kDeleted : kLive;
  if (child > 0) {
    if (static_cast<std::size_t>(child) >= place_of_.size()) place_of_.resize(static_cast<std::size_t>(child) + 1);
    place_of_[static_cast<std::size_t>(child)] = {parent, static_cast<std::uint32_t>(list.children.size())};
  }
  list.children.push_back({child, mark});
  ++(deleted ? list.deleted : list.live);
  if (list.trees) {
    list.trees[kLive].Push(mark == kLive);
    list.trees[kDeleted].Push(mark == kDeleted);
  } else if (!list.AllLive()) {
    MakeTrees(list);
  }
}

void ChildIndex::Remark(List& list, std::size_t position, Mark mark) {
  Child& child = list.children[position];
  if (child.mark == mark) return;
  if (!list.trees) MakeTrees(list);
  const auto count = [&](Mark m) -> Long* { return m == kLive ? &list.live : m == kDeleted ? &list.deleted : nullptr; };
  if (Long* before = count(child.mark)) {
    --*before;
    list.trees[child.mark].Add(position, -1);
  }
  if (Long* after = count(mark)) {
    ++*after;
    list.trees[mark].Add(position, +1);
  }
  child.mark = mark;
}

void ChildIndex::SetDeleted(Long child, bool deleted) {
  if (child <= 0 || static_cast<std::size_t>(child) >= place_of_.size()) return;
  const Place place = place_of_[static_cast<std::size_t>(child)];
  if (place.parent < 0) return;
  Remark(lists_[list_of_[static_cast<std::size_t>(place.parent)] - 1], place.position, deleted ? kDeleted : kLive);
}

void ChildIndex::Remove(Long child) {
  if (child <= 0 || static_cast<std::size_t>(child) >= place_of_.size()) return;
  Place& place = place_of_[static_cast<std::size_t>(child)];
  if (place.parent < 0) return;
  Remark(lists_[list_of_[static_cast<std::size_t>(place.parent)] - 1], place.position, kGone);
  place = Place{};
}

void ChildIndex::ClearChildrenOf(Long parent) {
  const List* found = ListOf(parent);
  if (!found) return;
  List& list = lists_[list_of_[static_cast<std::size_t>(parent)] - 1];
  for (const Child& child : list.children) {
    if (child.handle > 0 && child.mark != kGone) place_of_[static_cast<std::size_t>(child.handle)] = Place{};
  }
  list = List{};
}

void ChildIndex::ForgetReads() {
  if (left_behind_.empty()) return;
  // A set that grew large is replaced, so that clearing it again costs nothing.
  if (left_behind_.bucket_count() > 1024) {
    left_behind_ = {};
  } else {
    left_behind_.clear();
  }
}

Long ChildIndex::LiveCount(Long parent) const {
  const List* list = ListOf(parent);
  return list ? list->live : 0;
}

Long ChildIndex::DeletedCount(Long parent) const {
  const List* list = ListOf(parent);
  return list ? list->deleted : 0;
}

Long ChildIndex::At(const List& list, Mark mark, Long k) {
  if (k < 1 || k > (mark == kLive ? list.live : list.deleted)) return 0;
  if (mark == kLive && list.AllLive()) return list.children[static_cast<std::size_t>(k) - 1].handle;
  return list.children[list.trees[mark].Find(k)].handle;
}

std::uint64_t ChildIndex::KeyOf(Long parent, Long k) {
  return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(parent)) << 32) | static_cast<std::uint32_t>(k);
}

Long ChildIndex::LiveAt(Long parent, Long k) const {
  const List* list = ListOf(parent);
  return list ? At(*list, kLive, k) : 0;
}

Long ChildIndex::DeletedItem(Long parent, Long k) const {
  const List* list = ListOf(parent);
  return list ? At(*list, kDeleted, k) : 0;
}

bool ChildIndex::LiveExists(Long parent, Long k) const {
  return (k >= 1 && k <= LiveCount(parent)) || left_behind_.count(KeyOf(parent, k)) != 0;
}

Long ChildIndex::LiveItem(Long parent, Long k) {
  if (k >= 1 && k <= LiveCount(parent)) return LiveAt(parent, k);
  left_behind_.insert(KeyOf(parent, k));
  return 0;
}

}  // namespace varnex
