// The scripting runtime's Dictionary: entries kept in insertion order, found through a hash
// index from the key as compared (upper-cased in text mode) to the entry's position.
#include "varnex/dictionary.hpp"

#include "runtime/text.hpp"
#include "varnex/automation_error.hpp"

namespace varnex {
Dictionary::Dictionary(CompareMethod mode) : mode_(mode) {}

void Dictionary::CompareMode(CompareMethod mode) {
  if (!entries_.empty()) throw AutomationError::Runtime(errInvalidProcedureCall);
  mode_ = mode;
}

void Dictionary::Add(const std::string& key, const Variant& item) {
  const auto [position, inserted] = positions_.try_emplace(Fold(key), entries_.size());
  if (!inserted) throw AutomationError::Runtime(errDuplicateKey);
  entries_.emplace_back(key, item);
}

bool Dictionary::Exists(const std::string& key) const { return Find(key) >= 0; }

Long Dictionary::Count() const { return static_cast<Long>(entries_.size()); }

Variant Dictionary::Item(const std::string& key) {
  const auto [position, inserted] = positions_.try_emplace(Fold(key), entries_.size());
  if (inserted) {
    entries_.emplace_back(key, Variant());
    return Variant();
  }
  return entries_[position->second].second;
}

void Dictionary::Item(const std::string& key, const Variant& item) {
  const auto [position, inserted] = positions_.try_emplace(Fold(key), entries_.size());
  if (inserted) {
    entries_.emplace_back(key, item);
  } else {
    entries_[position->second].second = item;
  }
}

void Dictionary::Remove(const std::string& key) {
  const auto found = positions_.find(Fold(key));
  if (found == positions_.end()) throw AutomationError::Runtime(errElementNotFound);
  const std::size_t removed = found->second;
  positions_.erase(found);
  entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(removed));
  // Entries behind the removed one moved up by one.
  for (auto& [folded, position] : positions_) {
    if (position > removed) --position;
  }
}

void Dictionary::RemoveAll() {
  entries_.clear();
  positions_.clear();
}

std::vector<std::string> Dictionary::Keys() const {
  std::vector<std::string> keys;
  keys.reserve(entries_.size());
  for (const auto& entry : entries_) keys.push_back(entry.first);
  return keys;
}

std::vector<Variant> Dictionary::Items() const {
  std::vector<Variant> items;
  items.reserve(entries_.size());
  for (const auto& entry : entries_) items.push_back(entry.second);
  return items;
}

std::ptrdiff_t Dictionary::Find(const std::string& key) const {
  const auto found = positions_.find(Fold(key));
  return found == positions_.end() ? -1 : static_cast<std::ptrdiff_t>(found->second);
}

std::string Dictionary::Fold(const std::string& key) const { return mode_ == TextCompare ? UCase(key) : key; }

}  // namespace varnex
