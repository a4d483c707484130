// The read-only OLE DB simple provider over an item collection.
#include "varnex/data_collection_provider.hpp"

#include "runtime/text.hpp"
#include "runtime/trap.hpp"

namespace varnex {
namespace {

inline constexpr Long kBooleanColumn = vbBoolean;

// The pieces of the text between the commas, as written (an empty piece included).
std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> pieces;
  std::size_t start = 0;
  for (;;) {
    const std::size_t comma = text.find(',', start);
    if (comma == std::string::npos) break;
    pieces.push_back(text.substr(start, comma - start));
    start = comma + 1;
  }
  pieces.push_back(text.substr(start));
  return pieces;
}

}  // namespace

void DataCollectionProvider::LoadData(std::shared_ptr<IDataCollection> objColl,
                                      const std::optional<std::vector<Long>>& arrDataTypes,
                                      const std::string& strFields) {
  ClassErrorTrap{"DataCollectionProvider", "Error Loading Data into Provider."}.Run([&] {
    bound_collection_ = std::move(objColl);

    std::vector<std::string> names;
    if (!strFields.empty()) {
      names = SplitAtCommas(strFields);
    } else {
      if (!bound_collection_) throw AutomationError::Runtime(errObjectNotSet);
      const Long count = bound_collection_->CountPropertyNames();
      for (Long i = 1; i <= count; ++i) names.push_back(bound_collection_->PropertyNames(i));
    }
    field_names_.clear();
    for (const std::string& name : names) field_names_.push_back(UCase(name));

    column_types_.clear();
    // An array that was never dimensioned has no bounds to walk.
    if (!arrDataTypes) throw AutomationError::Runtime(errSubscriptOutOfRange);
    column_types_ = *arrDataTypes;
  });
}

Long DataCollectionProvider::getRowCount() { return bound_collection_ ? bound_collection_->Count() : 0; }

Long DataCollectionProvider::getColumnCount() { return static_cast<Long>(field_names_.size()); }

Long DataCollectionProvider::getRWStatus(Long, Long) { return 0; }

bool DataCollectionProvider::IsBooleanColumn(Long iColumn) const {
  return iColumn >= 1 && static_cast<std::size_t>(iColumn) <= column_types_.size() &&
         column_types_[static_cast<std::size_t>(iColumn) - 1] == kBooleanColumn;
}

Variant DataCollectionProvider::getVariant(Long iRow, Long iColumn, Long) {
  return Swallow(Variant(), [&]() -> Variant {
    const auto field_name = [&]() -> const std::string& {
      if (iColumn < 1 || static_cast<std::size_t>(iColumn) > field_names_.size()) {
        throw AutomationError::Runtime(errSubscriptOutOfRange);
      }
      return field_names_[static_cast<std::size_t>(iColumn) - 1];
    };
    if (iRow == 0) return Variant(field_name());
    if (!bound_collection_) throw AutomationError::Runtime(errObjectNotSet);
    if (iRow > bound_collection_->Count()) return Variant(std::string());

    const std::shared_ptr<Collection> item = bound_collection_->Item(iRow);
    if (!item) throw AutomationError::Runtime(errObjectNotSet);
    std::string text = item->Item(Variant(UCase(field_name()))).AsString();
    if (!IsBooleanColumn(iColumn)) return Variant(std::move(text));
    const std::string upper = UCase(text);
    return Variant::FromBoolean(upper == "YES" || upper == "1" || upper == "TRUE" ? vbTrue : vbFalse);
  });
}

void DataCollectionProvider::setVariant(Long, Long, Long, const Variant&) {}

std::string DataCollectionProvider::getLocale() { return {}; }

Long DataCollectionProvider::deleteRows(Long, Long) { return 0; }

Long DataCollectionProvider::insertRows(Long, Long) { return 0; }

Long DataCollectionProvider::find(Long, Long, const Variant&, Long, Long) { return 0; }

void DataCollectionProvider::addOLEDBSimpleProviderListener(std::shared_ptr<OLEDBSimpleProviderListener> listener) {
  if (!listener) return;
  last_listener_ = listener;
  listener_list_.push_back(std::move(listener));
}

void DataCollectionProvider::removeOLEDBSimpleProviderListener(
    std::shared_ptr<OLEDBSimpleProviderListener> listener) {
  // The count is taken once: a removal shortens the list under the walk, which then runs past
  // its end. The last listener added stays referenced as well.
  const std::size_t count = listener_list_.size();
  for (std::size_t position = 1; position <= count; ++position) {
    if (position > listener_list_.size()) throw AutomationError::Runtime(errSubscriptOutOfRange);
    if (listener_list_[position - 1] == listener) {
      listener_list_.erase(listener_list_.begin() + static_cast<std::ptrdiff_t>(position - 1));
    }
  }
}

Boolean DataCollectionProvider::isAsync() { return vbFalse; }

Long DataCollectionProvider::getEstimatedRows() { return getRowCount(); }

void DataCollectionProvider::stopTransfer() {}

}  // namespace varnex
