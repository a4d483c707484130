// The scripting runtime's Dictionary: an ordered map from text keys to variants.
//
// Keys compare as the compare mode says (binary: exactly; text: without regard to case).
// Reading the item of a missing key adds that key with an empty value and yields Empty;
// adding a key that exists already is error 457.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "varnex/object.hpp"
#include "varnex/variant.hpp"

namespace varnex {

enum CompareMethod : Long { BinaryCompare = 0, TextCompare = 1 };

class Dictionary : public Object {
 public:
  // An empty dictionary comparing keys as `mode` says.
  explicit Dictionary(CompareMethod mode = BinaryCompare);

  // How keys compare.
  CompareMethod CompareMode() const { return mode_; }
  // Changing the compare mode of a dictionary that holds items is error 5, as on the platform.
  void CompareMode(CompareMethod mode);

  void Add(const std::string& key, const Variant& item);  // 457 when the key exists
  bool Exists(const std::string& key) const;              // never inserts
  Long Count() const;                                     // number of keys
  Variant Item(const std::string& key);                    // inserts Empty under a missing key
  void Item(const std::string& key, const Variant& item);  // sets or adds
  void Remove(const std::string& key);                     // 32811 "Element not found" when missing
  void RemoveAll();                                       // empties it; the compare mode stays
  std::vector<std::string> Keys() const;                  // in the order they were added
  std::vector<Variant> Items() const;                     // in the order of Keys

 private:
  std::ptrdiff_t Find(const std::string& key) const;
  std::string Fold(const std::string& key) const;

  CompareMethod mode_;
  std::vector<std::pair<std::string, Variant>> entries_;       // in insertion order
  std::unordered_map<std::string, std::size_t> positions_;     // the key as compared -> entry
};

}  // namespace varnex
