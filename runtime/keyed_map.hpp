// The dictionary behaviour that the indexes of Varnex rely on, for any value type.
//
// Keys are text; in text-compare mode they compare without regard to case. Reading the item of
// a missing key inserts that key with an empty (value-initialised) value and yields it, as the
// scripting runtime's Dictionary does: a later Exists finds the key. Adding a key that exists is
// error 457.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "runtime/text.hpp"
#include "varnex/automation_error.hpp"

namespace varnex {

enum class KeyCompare { Binary, Text };

template <typename Value>
class KeyedMap {
 public:
  explicit KeyedMap(KeyCompare compare = KeyCompare::Binary) : compare_(compare) {}

  // The value under the key; a missing key is inserted with an empty value.
  Value& Item(std::string_view key) { return entries_[Fold(key)]; }
  bool Exists(std::string_view key) const { return entries_.count(Fold(key)) != 0; }
  // Adds a new key; error 457 when it exists already.
  void Add(std::string_view key, Value value) {
    auto [it, inserted] = entries_.try_emplace(Fold(key), std::move(value));
    if (!inserted) throw AutomationError::Runtime(errDuplicateKey);
  }
  // Sets the value under the key, adding the key when missing.
  void Set(std::string_view key, Value value) { entries_[Fold(key)] = std::move(value); }
  void RemoveAll() { entries_.clear(); }
  std::size_t Count() const { return entries_.size(); }

 private:
  std::string Fold(std::string_view key) const {
    return compare_ == KeyCompare::Text ? UCase(key) : std::string(key);
  }

  KeyCompare compare_;
  std::unordered_map<std::string, Value> entries_;
};

}  // namespace varnex
