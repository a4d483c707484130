// Ranges over the children and the properties of a component, so that a C++ host walks a
// document with range-for instead of counting and reading through out parameters.
//
//   for (const varnex::ChildInfo& child : transport.Children(0)) ...
//   for (const varnex::PropertyInfo& property : transport.Properties(child.handle)) ...
//
// A range counts once, when it is made, and reads each element when the iterator is
// dereferenced; a document changed during the walk is read as it stands then.
#pragma once

#include <cstddef>
#include <iterator>
#include <string>

#include "varnex/types.hpp"

namespace varnex {

class Transport;

// A child as GetCompChild reports it.
struct ChildInfo {
  Long handle = 0;
  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
};

// A property as GetCompProperty reports it; position is its 1-based property number.
struct PropertyInfo {
  Long position = 0;
  std::string name;
  std::string value;
  enComponentStatus status = csNormal;
  std::string original;
};

// Positions 1 to size() under one component, each read when dereferenced.
template <typename Info>
class PositionRange {
 public:
  using Reader = Info (*)(Transport& transport, Long owner, Long position);

  class iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Info;
    using difference_type = std::ptrdiff_t;
    using reference = Info;
    using pointer = void;

    iterator() = default;
    iterator(Transport* transport, Reader read, Long owner, Long position)
        : transport_(transport), read_(read), owner_(owner), position_(position) {}

    Info operator*() const { return read_(*transport_, owner_, position_); }
    iterator& operator++() {
      ++position_;
      return *this;
    }
    iterator operator++(int) {
      iterator before = *this;
      ++position_;
      return before;
    }
    bool operator==(const iterator& other) const { return position_ == other.position_; }

   private:
    Transport* transport_ = nullptr;
    Reader read_ = nullptr;
    Long owner_ = 0;
    Long position_ = 1;
  };

  PositionRange(Transport& transport, Reader read, Long owner, Long count)
      : transport_(&transport), read_(read), owner_(owner), count_(count) {}

  iterator begin() const { return {transport_, read_, owner_, 1}; }
  iterator end() const { return {transport_, read_, owner_, count_ + 1}; }
  Long size() const { return count_; }
  bool empty() const { return count_ == 0; }

 private:
  Transport* transport_;
  Reader read_;
  Long owner_;
  Long count_;
};

using ChildRange = PositionRange<ChildInfo>;
using PropertyRange = PositionRange<PropertyInfo>;

}  // namespace varnex
