// The positional enumerator over a collection.
#include "varnex/enumerator.hpp"

namespace varnex {

Enumerator::Enumerator(std::shared_ptr<const Collection> collection) : collection_(std::move(collection)) {}

bool Enumerator::Next(Variant& item) {
  if (!collection_ || handed_out_ >= collection_->Count()) return false;
  ++handed_out_;
  item = collection_->Item(handed_out_);
  return true;
}

bool Enumerator::Skip(Long count) {
  const Long left = collection_ ? collection_->Count() - handed_out_ : 0;
  if (count > left) {
    handed_out_ += left > 0 ? left : 0;
    return false;
  }
  if (count > 0) handed_out_ += count;
  return true;
}

void Enumerator::Reset() { handed_out_ = 0; }

}  // namespace varnex
