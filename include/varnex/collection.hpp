// The platform's ordered collection: 1-based positions, optional keys compared without regard
// to case. A position out of range is error 9, an unknown key error 5, a duplicate key 457.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "varnex/object.hpp"
#include "varnex/variant.hpp"

namespace varnex {

class Collection : public Object {
 public:
  // Appends the item; an empty key adds it without a key.
  void Add(const Variant& item, const std::string& key = "");
  // The item at a Long position (1-based) or under a String key.
  Variant Item(const Variant& index) const;
  Long Count() const;
  // Removes the item at a position or under a key.
  void Remove(const Variant& index);

  // C++ iteration over the items in order.
  std::vector<Variant>::const_iterator begin() const { return items_.begin(); }
  std::vector<Variant>::const_iterator end() const { return items_.end(); }

 private:
  std::size_t PositionOf(const Variant& index) const;

  std::vector<Variant> items_;
  std::vector<std::string> keys_;                        // upper-cased key per item, "" for none
  std::unordered_map<std::string, std::size_t> by_key_;  // upper-cased key -> position (0-based)
};

}  // namespace varnex
