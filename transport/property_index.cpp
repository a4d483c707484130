#include "transport/property_index.hpp"

#include <algorithm>

#include "varnex/automation_error.hpp"

namespace varnex {

void PropertyIndex::Reset() {
  lists_.clear();
  nodes_.clear();
  unused_ = 0;
  unkeyed_ = 0;
}

PropertyIndex::List* PropertyIndex::ListOf(Long handle) {
  if (handle <= 0 || static_cast<std::size_t>(handle) >= lists_.size()) return nullptr;
  return &lists_[static_cast<std::size_t>(handle)];
}

const PropertyIndex::List* PropertyIndex::ListOf(Long handle) const {
  if (handle <= 0 || static_cast<std::size_t>(handle) >= lists_.size()) return nullptr;
  return &lists_[static_cast<std::size_t>(handle)];
}

void PropertyIndex::StartList(Long handle) {
  if (handle <= 0) return;
  if (static_cast<std::size_t>(handle) >= lists_.size()) lists_.resize(static_cast<std::size_t>(handle) + 1);
  List& list = lists_[static_cast<std::size_t>(handle)];
  unused_ += list.capacity;
  list = List{static_cast<std::uint32_t>(nodes_.size()), 0, 0, true};
}

void PropertyIndex::AddList(Long handle, pugi::xml_node properties) {
  if (handle <= 0) {
    // A list whose component has no handle is keyed by an empty text no caller can ask for.
    if (unkeyed_ > 0) throw AutomationError::Runtime(errDuplicateKey);
    ++unkeyed_;
    return;
  }
  if (Listed(handle)) throw AutomationError::Runtime(errDuplicateKey);
  StartList(handle);
  for (pugi::xml_node child = properties.first_child(); child; child = child.next_sibling()) Append(handle, child);
}

void PropertyIndex::AddNodes(Long handle, const pugi::xml_node* nodes, std::size_t count) {
  if (handle <= 0 || Listed(handle)) {
    // As AddList would, for a list that cannot be recorded under this handle.
    if (handle <= 0 && unkeyed_ == 0) {
      ++unkeyed_;
      return;
    }
    throw AutomationError::Runtime(errDuplicateKey);
  }
  StartList(handle);
  List& list = lists_[static_cast<std::size_t>(handle)];
  nodes_.insert(nodes_.end(), nodes, nodes + count);
  list.count = list.capacity = static_cast<std::uint32_t>(count);
}

void PropertyIndex::Reserve(Long last_handle, std::size_t nodes) {
  if (last_handle > 0 && static_cast<std::size_t>(last_handle) >= lists_.size()) {
    lists_.resize(static_cast<std::size_t>(last_handle) + 1);
  }
  nodes_.reserve(nodes_.size() + nodes);
}

void PropertyIndex::Append(Long handle, pugi::xml_node property) {
  List* list = ListOf(handle);
  if (!list || !list->listed) return;
  if (list->count == list->capacity) {
    if (list->start + list->capacity == nodes_.size()) {
      // The last list in the array grows in place.
      nodes_.push_back(property);
      ++list->capacity;
      ++list->count;
      return;
    }
    const std::uint32_t capacity = std::max<std::uint32_t>(4, list->capacity * 2);
    const auto start = static_cast<std::uint32_t>(nodes_.size());
    nodes_.resize(nodes_.size() + capacity);
    std::copy_n(nodes_.begin() + list->start, list->count, nodes_.begin() + start);
    unused_ += list->capacity;
    list->start = start;
    list->capacity = capacity;
  }
  nodes_[list->start + list->count++] = property;
  if (unused_ > 1024 && unused_ > nodes_.size() / 2) Reclaim();
}

void PropertyIndex::Drop(Long handle) {
  List* list = ListOf(handle);
  if (!list || !list->listed) return;
  unused_ += list->capacity;
  *list = List{};
}

void PropertyIndex::Reclaim() {
  std::vector<pugi::xml_node> kept;
  kept.reserve(nodes_.size() - unused_);
  for (List& list : lists_) {
    if (!list.listed) continue;
    const auto start = static_cast<std::uint32_t>(kept.size());
    kept.insert(kept.end(), nodes_.begin() + list.start, nodes_.begin() + list.start + list.count);
    list.start = start;
    list.capacity = list.count;
  }
  nodes_.swap(kept);
  unused_ = 0;
}

bool PropertyIndex::Listed(Long handle) const {
  const List* list = ListOf(handle);
  return list && list->listed;
}

Long PropertyIndex::Count(Long handle) const {
  const List* list = ListOf(handle);
  return list ? static_cast<Long>(list->count) : 0;
}

pugi::xml_node PropertyIndex::At(Long handle, Long k) const {
  const List* list = ListOf(handle);
  if (!list || k < 1 || static_cast<std::uint32_t>(k) > list->count) return {};
  return nodes_[list->start + static_cast<std::size_t>(k) - 1];
}

}  // namespace varnex
