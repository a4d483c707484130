// Varnex.DataCollectionSource: the automation face of the data source (Data, Fields, DataTypes).
#include <varnex/varnex.hpp>

#include "classes.hpp"
#include "com_object.hpp"
#include "parameters.hpp"
#include "varnex.h"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {
namespace {

class SourceObject final : public ComObject<_DataCollectionSource> {
 public:
  explicit SourceObject(std::shared_ptr<DataCollectionSource> source) : ComObject(source), source_(std::move(source)) {}

  HRESULT STDMETHODCALLTYPE putref_Data(_IDataCollection** objData) override {
    return Call([&] {
      RequirePointer(objData);
      source_->Data(CoreObjectAs<IDataCollection>(*objData));
    });
  }
  HRESULT STDMETHODCALLTYPE put_Fields(BSTR* strFields) override {
    return Call([&] {
      RequirePointer(strFields);
      source_->Fields(ToUtf8(*strFields));
    });
  }
  // An array that was never dimensioned leaves the types unset.
  HRESULT STDMETHODCALLTYPE put_DataTypes(SAFEARRAY** arrDataTypes) override {
    return Call([&] {
      RequirePointer(arrDataTypes);
      if (const auto types = LongsOf(*arrDataTypes)) source_->DataTypes(*types);
    });
  }

 private:
  std::shared_ptr<DataCollectionSource> source_;
};

}  // namespace

IDispatch* NewSourceObject(std::shared_ptr<DataCollectionSource> source) {
  return static_cast<_DataCollectionSource*>(new SourceObject(std::move(source)));
}

HRESULT CreateSourceObject(REFIID iid, void** object) {
  return CreateAndQuery<SourceObject>(iid, object, std::make_shared<DataCollectionSource>());
}

}  // namespace varnex::server
