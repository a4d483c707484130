// The item collection: DataCollection reads the first collection of a transport document into
// items and column names.
#include "varnex/data_collection.hpp"

#include "runtime/trap.hpp"
#include "varnex/transport.hpp"

namespace varnex {

DataCollection::DataCollection() : items_(std::make_shared<Collection>()) {}

void DataCollection::Clear() {
  // Items already handed out stay alive with their holders.
  column_names_ = Collection();
  items_ = std::make_shared<Collection>();
}

Boolean DataCollection::Initialize(const std::string& strData) {
  return Trap{"Initialize"}.Run([&] {
    Clear();
    Transport transport;
    transport.TransportDoc(strData);

    std::string name;
    enComponentStatus status = csNormal;
    enComponentType type = ctComponent;
    Long collection = 0;
    bool found = false;
    const Long top_count = transport.CountCompChildren(0, vbFalse);
    for (Long i = 1; i <= top_count && !found; ++i) {
      collection = transport.GetCompChild(0, i, name, status, type);
      found = type == ctcollection;
    }
    if (!found) return vbFalse;

    std::string value;
    std::string original;
    const Long item_count = transport.CountCompChildren(collection, vbFalse);
    for (Long j = 1; j <= item_count; ++j) {
      const Long child = transport.GetCompChild(collection, j, name, status, type);
      auto item = std::make_shared<Collection>();
      const Long property_count = transport.CountCompProperties(child);
      for (Long k = 1; k <= property_count; ++k) {
        const std::string property = transport.GetCompProperty(child, k, value, status, original);
        item->Add(value, property);
        if (j == 1) column_names_.Add(property);
      }
      items_->Add(item);
    }
    return vbTrue;
  });
}

void DataCollection::Data(const std::string& text) {
  try {
    Initialize(text);
  } catch (const AutomationError&) {
    // The property assigns itself once more with the text "0". That text is no transport
    // document, so the retry goes no further than this one round and its failure is dropped;
    // either way the collection ends empty.
    IgnoreErrors([&] { Initialize("0"); });
  }
}

Long DataCollection::Count() {
  return Swallow(Long{0}, [&] { return items_->Count(); });
}

std::shared_ptr<Collection> DataCollection::Item(const Variant& lngIndex) {
  return Trap{"Item"}.Run([&] { return items_->Item(lngIndex).AsObjectOf<Collection>(); });
}

Long DataCollection::CountPropertyNames() {
  return Trap{"CountPropertyNames"}.Run([&] { return column_names_.Count(); });
}

std::string DataCollection::PropertyNames(Long lngIndex) {
  return Trap{"PropertyNames"}.Run([&] { return column_names_.Item(lngIndex).AsString(); });
}

std::shared_ptr<Enumerator> DataCollection::NewEnum() { return std::make_shared<Enumerator>(items_); }

}  // namespace varnex
