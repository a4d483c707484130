#include "transport/child_index.hpp"

namespace varnex {
namespace {

// Groups the children by parent, keeping document order within each parent (a counting sort).
template <typename Lists, typename Select>
void Group(Lists& lists, const std::vector<ChildIndex::Entry>& entries, Long max_handle, Select wanted) {
  const std::size_t parents = static_cast<std::size_t>(max_handle) + 1;
  lists.start.assign(parents + 1, 0);
  for (const auto& entry : entries) {
    if (wanted(entry)) ++lists.start[static_cast<std::size_t>(entry.parent) + 1];
  }
  for (std::size_t i = 1; i <= parents; ++i) lists.start[i] += lists.start[i - 1];
  lists.children.assign(lists.start[parents], 0);
  std::vector<std::uint32_t> next(lists.start.begin(), lists.start.end() - 1);
  for (const auto& entry : entries) {
    if (wanted(entry)) lists.children[next[static_cast<std::size_t>(entry.parent)]++] = entry.child;
  }
}

}  // namespace

void ChildIndex::Build(const std::vector<Entry>& entries, Long max_handle) {
  Group(live_, entries, max_handle, [](const Entry& e) { return !e.deleted; });
  Group(deleted_, entries, max_handle, [](const Entry& e) { return e.deleted; });
  left_behind_.clear();
}

Long ChildIndex::Count(const Lists& lists, Long parent) {
  if (parent < 0 || static_cast<std::size_t>(parent) + 1 >= lists.start.size()) return 0;
  const auto p = static_cast<std::size_t>(parent);
  return static_cast<Long>(lists.start[p + 1] - lists.start[p]);
}

Long ChildIndex::At(const Lists& lists, Long parent, Long k) {
  if (k < 1 || k > Count(lists, parent)) return 0;
  return lists.children[lists.start[static_cast<std::size_t>(parent)] + static_cast<std::size_t>(k) - 1];
}

std::uint64_t ChildIndex::KeyOf(Long parent, Long k) {
  return (static_cast<std::uint64_t>(static_cast<std::uint32_t>(parent)) << 32) | static_cast<std::uint32_t>(k);
}

bool ChildIndex::LiveExists(Long parent, Long k) const {
  return (k >= 1 && k <= LiveCount(parent)) || left_behind_.count(KeyOf(parent, k)) != 0;
}

Long ChildIndex::LiveItem(Long parent, Long k) {
  if (k >= 1 && k <= LiveCount(parent)) return At(live_, parent, k);
  left_behind_.insert(KeyOf(parent, k));
  return 0;
}

}  // namespace varnex
