// The items of one collection of a loaded document, read through the Transport as they are
// asked for: one item per component of the collection (deleted ones included), one value per
// property (its current value), keyed by property name; the first item's property names are the
// columns. The same items as a DataCollection loaded with that collection, without a second copy
// of the document; one difference: a repeated property name keeps its first value, where a
// DataCollection would load nothing at all.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "varnex/data_collection.hpp"
#include "varnex/transport.hpp"

namespace varnex::cli {

class CollectionView : public IDataCollection {
 public:
  CollectionView(Transport& transport, Long collection);

  Long Count() override;
  // The item at a 1-based position; the last one asked for is kept, since a provider asks for
  // the same item once per column. Failures as the ordered collection's (9 out of range).
  std::shared_ptr<Collection> Item(const Variant& lngIndex) override;
  Long CountPropertyNames() override;
  std::string PropertyNames(Long lngIndex) override;

 private:
  Transport& transport_;
  Long collection_;
  Long count_;
  std::vector<std::string> column_names_;
  Long cached_position_ = 0;
  std::shared_ptr<Collection> cached_item_;
};

// The first collection directly under the root (deleted ones included), 0 when there is none.
Long FirstCollection(Transport& transport);

}  // namespace varnex::cli
