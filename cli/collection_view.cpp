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
  for (PropertyInfo property : transport_.Properties(MemberAt(transport_, collection_, 1))) {
    column_names_.push_back(std::move(property.name));
  }
}

Long CollectionView::Count() { return count_; }

std::shared_ptr<Collection> CollectionView::Item(const Variant& lngIndex) {
  if (lngIndex.VarType() == vbString) throw AutomationError::Runtime(errInvalidProcedureCall);  // items have no keys
  const Long position = lngIndex.AsLong();
  if (position < 1 || position > count_) throw AutomationError::Runtime(errSubscriptOutOfRange);
  if (position == cached_position_) return cached_item_;
  auto item = std::make_shared<Collection>();
  for (PropertyInfo property : transport_.Properties(MemberAt(transport_, collection_, position))) {
    // A repeated property name keeps its first value, which is the one a lookup by name finds.
    try {
      item->Add(Variant(std::move(property.value)), property.name);
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
  for (const ChildInfo& child : transport.Children(0)) {
    if (child.type == ctcollection) return child.handle;
  }
  return 0;
}

}  // namespace varnex::cli
