#include "transport/property_index.hpp"

#include "varnex/automation_error.hpp"

namespace varnex {

void PropertyIndex::Reset(Long max_handle) {
  const std::size_t size = static_cast<std::size_t>(max_handle) + 1;
  lists_.assign(size, List{});
  listed_.assign(size, false);
  listed_without_handle_ = false;
  nodes_.clear();
  built_ = false;
}

void PropertyIndex::AddList(Long handle, pugi::xml_node properties) {
  const bool known = handle > 0 && static_cast<std::size_t>(handle) < listed_.size();
  if (known ? listed_[static_cast<std::size_t>(handle)] : listed_without_handle_) {
    throw AutomationError::Runtime(errDuplicateKey);
  }
  if (!known) {
    // A list whose component has no handle is keyed by an empty text no caller can ask for.
    listed_without_handle_ = true;
    return;
  }
  const auto h = static_cast<std::size_t>(handle);
  listed_[h] = true;
  List& list = lists_[h];
  list.start = static_cast<std::uint32_t>(nodes_.size());
  for (pugi::xml_node child = properties.first_child(); child; child = child.next_sibling()) {
    nodes_.push_back(child);
  }
  list.count = static_cast<std::uint32_t>(nodes_.size() - list.start);
}

Long PropertyIndex::Count(Long handle) const {
  if (handle <= 0 || static_cast<std::size_t>(handle) >= lists_.size()) return 0;
  return static_cast<Long>(lists_[static_cast<std::size_t>(handle)].count);
}

pugi::xml_node PropertyIndex::At(Long handle, Long k) const {
  if (handle <= 0 || static_cast<std::size_t>(handle) >= lists_.size()) return {};
  const List& list = lists_[static_cast<std::size_t>(handle)];
  if (k < 1 || static_cast<std::uint32_t>(k) > list.count) return {};
  return nodes_[list.start + static_cast<std::size_t>(k) - 1];
}

}  // namespace varnex
