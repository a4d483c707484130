// A map from node addresses to small values: one open-addressed array (linear probing, at most
// half full), no allocation per entry. Entries are never removed.
#pragma once

#include <cstdint>
#include <vector>

namespace varnex {

template <typename Value>
class NodeMap {
 public:
  void Clear() {
    slots_.clear();
    used_ = 0;
  }
  // Makes room for `count` entries without growing again.
  void Reserve(std::size_t count) {
    if (count * 2 > slots_.size()) Rehash(count * 2);
  }
  std::size_t Size() const { return used_; }

  // The value of the key, made (value-initialised) when missing; `made` tells which.
  Value& Find(const void* key, bool& made) {
    if ((used_ + 1) * 2 > slots_.size()) Rehash(slots_.size() * 2);
    Slot& slot = SlotOf(key);
    made = slot.key == nullptr;
    if (made) {
      slot.key = key;
      ++used_;
    }
    return slot.value;
  }
  // The value of the key; null when missing.
  const Value* Get(const void* key) const {
    if (slots_.empty()) return nullptr;
    const Slot& slot = const_cast<NodeMap*>(this)->SlotOf(key);
    return slot.key ? &slot.value : nullptr;
  }

 private:
  struct Slot {
    const void* key = nullptr;
    Value value{};
  };

  // The slot holding the key, or the empty slot where it belongs.
  Slot& SlotOf(const void* key) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = Spread(key) & mask;
    while (slots_[at].key && slots_[at].key != key) at = (at + 1) & mask;
    return slots_[at];
  }
  static std::size_t Spread(const void* key) {
    const auto bits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(key));
    return static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15ull) >> 24);
  }
  void Rehash(std::size_t at_least) {
    std::size_t size = 64;
    while (size < at_least) size *= 2;
    std::vector<Slot> old;
    old.swap(slots_);
    slots_.assign(size, Slot{});
    for (const Slot& slot : old) {
      if (slot.key) SlotOf(slot.key) = slot;
    }
  }

  std::vector<Slot> slots_;  // size a power of two
  std::size_t used_ = 0;
};

// A set of node addresses.
class NodeSet {
 public:
  // True when the key was not in the set yet.
  bool Insert(const void* key) {
    bool made = false;
    map_.Find(key, made);
    return made;
  }
  bool Contains(const void* key) const { return map_.Get(key) != nullptr; }

 private:
  NodeMap<char> map_;
};

}  // namespace varnex
