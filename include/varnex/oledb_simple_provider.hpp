// The OLE DB simple provider interfaces through which data-bound controls read a table: the
// provider, and the listener that a consumer registers for change notifications. Members are in
// the platform's slot order. Rows and columns count from 1; row 0 is the header row.
#pragma once

#include <memory>
#include <string>

#include "varnex/object.hpp"
#include "varnex/types.hpp"
#include "varnex/variant.hpp"

namespace varnex {

// What a consumer is told: before and after a cell changes, rows are deleted or inserted, when
// rows arrive and when an asynchronous transfer ends. Varnex's own provider is read-only and
// never calls them.
class OLEDBSimpleProviderListener {
 public:
  virtual ~OLEDBSimpleProviderListener() = default;
  virtual void aboutToChangeCell(Long iRow, Long iColumn) = 0;
  virtual void cellChanged(Long iRow, Long iColumn) = 0;
  virtual void aboutToDeleteRows(Long iRow, Long cRows) = 0;
  virtual void deletedRows(Long iRow, Long cRows) = 0;
  virtual void aboutToInsertRows(Long iRow, Long cRows) = 0;
  virtual void insertedRows(Long iRow, Long cRows) = 0;
  virtual void rowsAvailable(Long iRow, Long cRows) = 0;
  virtual void transferComplete(Long xfer) = 0;
};

// A table of rows and columns: counts, the read-write status and value of a cell, row deletion
// and insertion, search, listener registration and transfer state. DataCollectionProvider says
// what each member answers there.
class OLEDBSimpleProvider : public Object {
 public:
  virtual Long getRowCount() = 0;
  virtual Long getColumnCount() = 0;
  virtual Long getRWStatus(Long iRow, Long iColumn) = 0;
  virtual Variant getVariant(Long iRow, Long iColumn, Long format) = 0;
  virtual void setVariant(Long iRow, Long iColumn, Long format, const Variant& var) = 0;
  virtual std::string getLocale() = 0;
  virtual Long deleteRows(Long iRow, Long cRows) = 0;
  virtual Long insertRows(Long iRow, Long cRows) = 0;
  virtual Long find(Long iRowStart, Long iColumn, const Variant& val, Long findFlags, Long compType) = 0;
  virtual void addOLEDBSimpleProviderListener(std::shared_ptr<OLEDBSimpleProviderListener> listener) = 0;
  virtual void removeOLEDBSimpleProviderListener(std::shared_ptr<OLEDBSimpleProviderListener> listener) = 0;
  virtual Boolean isAsync() = 0;
  virtual Long getEstimatedRows() = 0;
  virtual void stopTransfer() = 0;
};

}  // namespace varnex
