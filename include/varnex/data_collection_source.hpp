// The data source that a data-bound control is given: when the control asks for its data, it
// hands over a freshly loaded DataCollectionProvider over the collection.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "varnex/data_collection.hpp"
#include "varnex/oledb_simple_provider.hpp"

namespace varnex {

class DataCollectionSource : public Object {
 public:
  // The collection to present.
  void Data(std::shared_ptr<IDataCollection> data);
  // The column list, comma-separated; empty takes the collection's own property names.
  void Fields(const std::string& fields);
  // One type code per column (11 for a Boolean column); copied.
  void DataTypes(const std::vector<Long>& types);

  // What was stored (for C++ callers; the automation interface keeps these write-only).
  std::shared_ptr<IDataCollection> Data() const { return data_; }
  const std::string& Fields() const { return fields_; }
  // nullopt until DataTypes is set.
  const std::optional<std::vector<Long>>& DataTypes() const { return data_types_; }

  // The data-member request of a bound control (the member name is ignored): a new provider,
  // loaded with the stored data, types and fields, every time.
  // Failures: 0x80040201 "DataSource contains no data." (source DataCollectionSource) before Data
  // is set; the provider's "Error Loading Data into Provider." (DataTypes never set) unchanged.
  std::shared_ptr<OLEDBSimpleProvider> GetDataMember(const std::string& dataMember = "");

 private:
  std::shared_ptr<IDataCollection> data_;
  std::shared_ptr<OLEDBSimpleProvider> provider_;  // the provider last handed out
  std::string fields_;
  std::optional<std::vector<Long>> data_types_;
};

}  // namespace varnex
