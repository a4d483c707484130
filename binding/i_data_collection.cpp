// The bare item-collection interface: every member does nothing.
#include "varnex/data_collection.hpp"

namespace varnex {

void IDataCollection::Data(const std::string&) {}
Long IDataCollection::Count() { return 0; }
std::shared_ptr<Collection> IDataCollection::Item(const Variant&) { return nullptr; }
Long IDataCollection::CountPropertyNames() { return 0; }
std::string IDataCollection::PropertyNames(Long) { return {}; }
std::shared_ptr<Enumerator> IDataCollection::NewEnum() { return nullptr; }
Boolean IDataCollection::BindToGrid(LateBound&, const std::string&, const std::string&) { return vbFalse; }

}  // namespace varnex
