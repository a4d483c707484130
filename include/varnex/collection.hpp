// The platform's ordered collection: 1-based positions, optional keys compared without regard
// to case. A position out of range is error 9, an unknown key error 5, a duplicate key 457.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "varnex/object.hpp"
#include "varnex/variant.hpp"

namespace varnex {

class Collection : public Object {
 public:
  using const_iterator = std::vector<Variant>::const_iterator;

  // Appends the item; an empty key adds it without a key.
  void Add(const Variant& item, const std::string& key = "");
  // The item at a position (1-based; a Long, a Boolean or Empty) or under a String key.
  Variant Item(const Variant& index) const;
  // Number of items.
  Long Count() const;
  // Removes the item at a position or under a key. Removing the first item is cheap, so a
  // collection can be drained from the front.
  void Remove(const Variant& index);

  // C++ iteration over the items in order.
  const_iterator begin() const { return items_.begin() + static_cast<std::ptrdiff_t>(head_); }
  const_iterator end() const { return items_.end(); }

 private:
  // Slot in items_ of the item that the index names.
  std::size_t SlotOf(const Variant& index) const;

  // items_[head_..] are the members; the slots before head_ were removed from the front and are
  // dropped once they outnumber the members.
  std::vector<Variant> items_;
  std::vector<std::string> keys_;                        // upper-cased key per slot, "" for none
  std::unordered_map<std::string, std::size_t> by_key_;  // upper-cased key -> slot
  std::size_t head_ = 0;
};

}  // namespace varnex
