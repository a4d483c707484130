// The data source that hands a loaded provider to a bound control.
#include "varnex/data_collection_source.hpp"

#include "varnex/automation_error.hpp"
#include "varnex/data_collection_provider.hpp"

namespace varnex {

void DataCollectionSource::Data(std::shared_ptr<IDataCollection> data) { data_ = std::move(data); }

void DataCollectionSource::Fields(const std::string& fields) { fields_ = fields; }

void DataCollectionSource::DataTypes(const std::vector<Long>& types) { data_types_ = types; }

std::shared_ptr<OLEDBSimpleProvider> DataCollectionSource::GetDataMember(const std::string&) {
  if (!data_) throw AutomationError::Class("DataCollectionSource", "DataSource contains no data.");
  auto provider = std::make_shared<DataCollectionProvider>();
  provider->LoadData(data_, data_types_, fields_);
  provider_ = provider;
  return provider;
}

}  // namespace varnex
