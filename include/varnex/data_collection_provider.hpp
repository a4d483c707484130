// A read-only OLE DB simple provider over an item collection: rows are the items, columns a
// chosen list of property names, and a column of type code 11 (vbBoolean) shows its text as
// True or False.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "varnex/data_collection.hpp"
#include "varnex/oledb_simple_provider.hpp"

namespace varnex {

class DataCollectionProvider : public OLEDBSimpleProvider {
 public:
  // Binds the provider to objColl. The columns are strFields split at every "," (blanks kept),
  // or, when strFields is empty, the collection's property names; either way upper-cased.
  // arrDataTypes holds one type code per column, its first element for column 1; nullopt is an
  // array that was never dimensioned, and fails.
  // Failures: 0x80040201 "Error Loading Data into Provider." (source DataCollectionProvider).
  void LoadData(std::shared_ptr<IDataCollection> objColl,
                const std::optional<std::vector<Long>>& arrDataTypes, const std::string& strFields = "");

  // The collection's Count; 0 before LoadData.
  Long getRowCount() override;
  // The number of columns; 0 before LoadData.
  Long getColumnCount() override;
  // 0 (read-only) everywhere.
  Long getRWStatus(Long iRow, Long iColumn) override;
  // Row 0: the column name. A row beyond the last: "". Otherwise the item's value under the
  // column name, as text, or for a Boolean column True when it reads "YES", "1" or "TRUE" in any
  // case and False otherwise. Any failure answers Empty and raises nothing.
  Variant getVariant(Long iRow, Long iColumn, Long format) override;
  // Discards the value.
  void setVariant(Long iRow, Long iColumn, Long format, const Variant& var) override;
  std::string getLocale() override;                    // ""
  Long deleteRows(Long iRow, Long cRows) override;     // deletes nothing: 0
  Long insertRows(Long iRow, Long cRows) override;     // inserts nothing: 0
  Long find(Long iRowStart, Long iColumn, const Variant& val, Long findFlags, Long compType) override;  // 0
  // Keeps the listener (a null one is ignored). Listeners are never called: the data cannot change
  // through the provider.
  void addOLEDBSimpleProviderListener(std::shared_ptr<OLEDBSimpleProviderListener> listener) override;
  // Removes the listener. The walk over the list goes as far as the count from before any
  // removal, so after removing any listener but the last it runs past the end and fails with
  // error 9 "Subscript out of range" (no prefix): removing the first of two fails.
  void removeOLEDBSimpleProviderListener(std::shared_ptr<OLEDBSimpleProviderListener> listener) override;
  Boolean isAsync() override;                          // False
  Long getEstimatedRows() override;                    // as getRowCount
  void stopTransfer() override;                        // does nothing

 private:
  bool IsBooleanColumn(Long iColumn) const;

  // Declared in the reverse of the order in which they are released at the end.
  std::shared_ptr<IDataCollection> bound_collection_;
  std::vector<Long> column_types_;       // one type code per column, column 1 first
  std::vector<std::string> field_names_;  // upper-cased column names, column 1 first
  std::shared_ptr<OLEDBSimpleProviderListener> last_listener_;
  std::vector<std::shared_ptr<OLEDBSimpleProviderListener>> listener_list_;
};

}  // namespace varnex
