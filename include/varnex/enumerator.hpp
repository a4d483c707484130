// The enumerator that a collection gives out for For Each: it walks the members by position.
#pragma once

#include <memory>

#include "varnex/collection.hpp"

namespace varnex {

class Enumerator : public Object {
 public:
  // Walks the collection from its first member; the enumerator keeps the collection alive.
  explicit Enumerator(std::shared_ptr<const Collection> collection);

  // Hands out the next member; false once the walk has passed the last (item is left alone).
  bool Next(Variant& item);
  // Passes over up to `count` members; false when fewer than that were left.
  bool Skip(Long count);
  // Starts again from the first member.
  void Reset();

 private:
  std::shared_ptr<const Collection> collection_;
  Long handed_out_ = 0;  // members already passed
};

}  // namespace varnex
