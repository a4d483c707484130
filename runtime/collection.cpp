// The ordered collection: 1-based positions over a vector, keys in a hash map of slots.
#include "varnex/collection.hpp"

#include "runtime/text.hpp"
#include "varnex/automation_error.hpp"

namespace varnex {

void Collection::Add(const Variant& item, const std::string& key) {
  std::string folded = key.empty() ? std::string() : UCase(key);
  if (!folded.empty()) {
    const auto [it, inserted] = by_key_.try_emplace(folded, items_.size());
    if (!inserted) throw AutomationError::Runtime(errDuplicateKey);
  }
  items_.push_back(item);
  keys_.push_back(std::move(folded));
}

Long Collection::Count() const { return static_cast<Long>(items_.size() - head_); }

std::size_t Collection::SlotOf(const Variant& index) const {
  if (index.VarType() == vbString) {
    const auto found = by_key_.find(UCase(index.AsString()));
    if (found == by_key_.end()) throw AutomationError::Runtime(errInvalidProcedureCall);
    return found->second;
  }
  const Long position = index.AsLong();
  if (position < 1 || position > Count()) throw AutomationError::Runtime(errSubscriptOutOfRange);
  return head_ + static_cast<std::size_t>(position - 1);
}

Variant Collection::Item(const Variant& index) const { return items_[SlotOf(index)]; }

void Collection::Remove(const Variant& index) {
  const std::size_t slot = SlotOf(index);
  if (!keys_[slot].empty()) by_key_.erase(keys_[slot]);
  if (slot == head_) {
    items_[slot] = Variant();
    keys_[slot].clear();
    ++head_;
    if (head_ == items_.size()) {
      items_.clear();
      keys_.clear();
      head_ = 0;
    } else if (head_ >= 32 && head_ * 2 >= items_.size()) {
      // Drop the removed front slots; every remaining key moves down by as many.
      const auto removed = static_cast<std::ptrdiff_t>(head_);
      items_.erase(items_.begin(), items_.begin() + removed);
      keys_.erase(keys_.begin(), keys_.begin() + removed);
      for (auto& entry : by_key_) entry.second -= head_;
      head_ = 0;
    }
    return;
  }
  items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(slot));
  keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(slot));
  for (std::size_t later = slot; later < keys_.size(); ++later) {
    if (!keys_[later].empty()) by_key_[keys_[later]] = later;
  }
}

}  // namespace varnex
