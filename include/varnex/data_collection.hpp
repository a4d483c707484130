// The item collection: a numbered list of items, each a keyed collection of named text values,
// with the property names of the first item as column names.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>

#include "varnex/collection.hpp"
#include "varnex/enumerator.hpp"
#include "varnex/late_bound.hpp"
#include "varnex/types.hpp"
#include "varnex/variant.hpp"

namespace varnex {

// The contract through which the binding classes see a flat list of records. This class itself
// is the empty implementation: every member answers 0, "", nothing or False.
class IDataCollection : public Object {
 public:
  // Loads the items from the text of a transport document.
  virtual void Data(const std::string& text);
  // Number of items.
  virtual Long Count();
  // The item at a 1-based position (or under a key): its values keyed by property name.
  virtual std::shared_ptr<Collection> Item(const Variant& lngIndex);
  // Number of column names.
  virtual Long CountPropertyNames();
  // The column name at a 1-based position.
  virtual std::string PropertyNames(Long lngIndex);
  // An enumerator over the items (each a Collection object).
  virtual std::shared_ptr<Enumerator> NewEnum();
  // Binds a control to the items (always answers False).
  virtual Boolean BindToGrid(LateBound& objControl, const std::string& strColumns = "",
                             const std::string& strControlProperty = "");
};

// The items of the first collection directly under the root of a transport document: one item
// per component of that collection (deleted ones included), one value per property (its current
// value, never the earlier one), keyed by property name; the first item's property names are the
// columns. Later items may carry other properties, reachable through Item by key only.
//
// Grid binding hands the collection itself to the grid, so it must be owned by a shared_ptr.
class DataCollection : public IDataCollection, public std::enable_shared_from_this<DataCollection> {
 public:
  DataCollection();

  // Discards what was loaded and loads the text. Raises nothing: text that does not load leaves
  // the collection empty.
  void Data(const std::string& text) override;
  // Never fails (0 on failure).
  Long Count() override;
  // Failures: "Item: ..." (9 for a position out of range, 5 for any key: items have none).
  std::shared_ptr<Collection> Item(const Variant& lngIndex) override;
  // Failures: "CountPropertyNames: ...".
  Long CountPropertyNames() override;
  // Failures: "PropertyNames: ..." (9 for a position out of range).
  std::string PropertyNames(Long lngIndex) override;
  // No trap of its own.
  std::shared_ptr<Enumerator> NewEnum() override;
  // For a control of type name "VSFlexGrid" (exactly) the grid's column widths, header texts and
  // column data types are kept across the binding, and the data types become the column types
  // of the data (11 shows a column as Boolean). The collection is then given to the control's
  // "DataSource" through a DataCollectionSource with strColumns as its Fields. strControlProperty
  // is not used. Answers False, always.
  // Failures before the layout is put back: 0x80040201 "Error Binding to Grid." (source
  // DataCollection); failures while putting it back are ignored.
  Boolean BindToGrid(LateBound& objControl, const std::string& strColumns = "",
                     const std::string& strControlProperty = "") override;

  // C++ iteration over the items, in order: for (std::shared_ptr<Collection> item : data) ...
  // Loading new data while a loop runs ends that loop's validity.
  class iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = std::shared_ptr<Collection>;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = std::shared_ptr<Collection>;

    iterator() = default;
    explicit iterator(Collection::const_iterator at) : at_(at) {}
    std::shared_ptr<Collection> operator*() const { return std::static_pointer_cast<Collection>(at_->AsObject()); }
    iterator& operator++() {
      ++at_;
      return *this;
    }
    iterator operator++(int) {
      iterator before = *this;
      ++at_;
      return before;
    }
    friend bool operator==(const iterator& a, const iterator& b) { return a.at_ == b.at_; }
    friend bool operator!=(const iterator& a, const iterator& b) { return a.at_ != b.at_; }

   private:
    Collection::const_iterator at_{};
  };
  iterator begin() const { return iterator(items_->begin()); }
  iterator end() const { return iterator(items_->end()); }

 private:
  // Releases the items and the column names.
  void Clear();
  // Loads the first collection under the root of the text; False when there is none.
  // Failures: "Initialize: ...".
  Boolean Initialize(const std::string& strData);

  std::shared_ptr<Collection> items_;  // one Collection object per item, without keys
  Collection column_names_;            // the first item's property names
};

}  // namespace varnex
