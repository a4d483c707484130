// The scripting runtime's Dictionary: entries kept in insertion order, found through a hash
// index from the key as compared (upper-cased in text mode) to the entry's position. A removal
// marks its entry; the marked entries are dropped in one pass once they outnumber the others, so
// that a removal costs the same however large the dictionary.
#include "varnex/dictionary.hpp"

#include "runtime/text.hpp"
#include "varnex/automation_error.hpp"

namespace varnex {
Dictionary::Dictionary(CompareMethod mode) : mode_(mode) {}

void Dictionary::CompareMode(CompareMethod mode) {
  if (Count() != 0) throw AutomationError::Runtime(errInvalidProcedureCall);
  mode_ = mode;
}

void Dictionary::Add(const std::string& key, const Variant& item) {
  const auto [position, inserted] = positions_.try_emplace(Fold(key), entries_.size());
  if (!inserted) throw AutomationError::Runtime(errDuplicateKey);
  entries_.push_back({key, item});
}

bool Dictionary::Exists(const std::string& key) const { return Find(key) >= 0; }

Long Dictionary::Count() const { return static_cast<Long>(entries_.size() - removed_); }

Variant Dictionary::Item(const std::string& key) {
  const auto [position, inserted] = positions_.try_emplace(Fold(key), entries_.size());
  if (inserted) {
    entries_.push_back({key, Variant()});
    return Variant();
  }
  return entries_[position->second].item;
}

void Dictionary::Item(const std::string& key, const Variant& item) {
  const auto [position, inserted] = positions_.try_emplace(Fold(key), entries_.size());
  if (inserted) {
    entries_.push_back({key, item});
  } else {
    entries_[position->second].item = item;
  }
}

void Dictionary::Remove(const std::string& key) {
  const auto found = positions_.find(Fold(key));
  if (found == positions_.end()) throw AutomationError::Runtime(errElementNotFound);
  Entry& entry = entries_[found->second];
  positions_.erase(found);
  entry = Entry{{}, Variant(), true};
  ++removed_;
  if (removed_ > 16 && removed_ * 2 > entries_.size()) Compact();
}

void Dictionary::Compact() {
  std::vector<Entry> kept;
  kept.reserve(entries_.size() - removed_);
  for (Entry& entry : entries_) {
    if (entry.removed) continue;
    positions_[Fold(entry.key)] = kept.size();
    kept.push_back(std::move(entry));
  }
  entries_.swap(kept);
  removed_ = 0;
}

void Dictionary::RemoveAll() {
  entries_.clear();
  removed_ = 0;
  positions_.clear();
}

std::vector<std::string> Dictionary::Keys() const {
  std::vector<std::string> keys;
  keys.reserve(entries_.size() - removed_);
  for (const Entry& entry : entries_) {
    if (!entry.removed) keys.push_back(entry.key);
  }
  return keys;
}

std::vector<Variant> Dictionary::Items() const {
  std::vector<Variant> items;
  items.reserve(entries_.size() - removed_);
  for (const Entry& entry : entries_) {
    if (!entry.removed) items.push_back(entry.item);
  }
  return items;
}

std::ptrdiff_t Dictionary::Find(const std::string& key) const {
  const auto found = positions_.find(Fold(key));
  return found == positions_.end() ? -1 : static_cast<std::ptrdiff_t>(found->second);
}

std::string Dictionary::Fold(const std::string& key) const { return mode_ == TextCompare ? UCase(key) : key; }

}  // namespace varnex
