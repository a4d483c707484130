#include "cli/collection_view.hpp"

#include "varnex/automation_error.hpp"

namespace varnex::cli {
namespace {

// The component at a 1-based position of the collection.
Long MemberAt(Transport& transport, Long collection, Long position) {
  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  return transport.GetCompChild(collection, position, name, status, type);
}

}  // namespace

CollectionView::CollectionView(Transport& transport, Long collection)
    : transport_(transport), collection_(collection), count_(transport.CountCompChildren(collection)) {
  if (count_ == 0) return;
  const Long first = MemberAt(transport_, collection_, 1);
  const Long properties = transport_.CountCompProperties(first);
  for (Long k = 1; k <= properties; ++k) {
    std::string value, original;
    enComponentStatus status = csNormal;
    column_names_.push_back(transport_.GetCompProperty(first, k, value, status, original));
  }
}

Long CollectionView::Count() { return count_; }

std::shared_ptr<Collection> CollectionView::Item(const Variant& lngIndex) {
  if (lngIndex.VarType() == vbString) throw AutomationError::Runtime(errInvalidProcedureCall);  // items have no keys
  const Long position = lngIndex.AsLong();
  if (position < 1 || position > count_) throw AutomationError::Runtime(errSubscriptOutOfRange);
  if (position == cached_position_) return cached_item_;
  const Long member = MemberAt(transport_, collection_, position);
  auto item = std::make_shared<Collection>();
  const Long properties = transport_.CountCompProperties(member);
  for (Long k = 1; k <= properties; ++k) {
    std::string value, original;
    enComponentStatus status = csNormal;
    const std::string name = transport_.GetCompProperty(member, k, value, status, original);
    // A repeated property name keeps its first value, which is the one a lookup by name finds.
    try {
      item->Add(Variant(std::move(value)), name);
    } catch (const AutomationError& error) {
      if (error.number() != errDuplicateKey) throw;
    }
  }
  cached_position_ = position;
  cached_item_ = item;
  return item;
}

Long CollectionView::CountPropertyNames() { return static_cast<Long>(column_names_.size()); }

std::string CollectionView::PropertyNames(Long lngIndex) {
  if (lngIndex < 1 || lngIndex > CountPropertyNames()) throw AutomationError::Runtime(errSubscriptOutOfRange);
  return column_names_[static_cast<std::size_t>(lngIndex - 1)];
}

Long FirstCollection(Transport& transport) {
  const Long count = transport.CountCompChildren(0);
  for (Long i = 1; i <= count; ++i) {
    std::string name;
    enComponentStatus status = csNormal;
    enComponentType type = ctComponent;
    const Long child = transport.GetCompChild(0, i, name, status, type);
    if (type == ctcollection) return child;
  }
  return 0;
}

}  // namespace varnex::cli
