// Varnex.DataCollection and Varnex.IDataCollection: the automation face of the item collection.
// Both answer the members of _IDataCollection through IDispatch.
#include <varnex/varnex.hpp>

#include "classes.hpp"
#include "com_object.hpp"
#include "late_bound_object.hpp"
#include "parameters.hpp"
#include "varnex.h"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {
namespace {

class DataCollectionObject final : public ComObject<_DataCollection, _IDataCollection> {
 public:
  explicit DataCollectionObject(std::shared_ptr<IDataCollection> collection)
      : ComObject(collection), collection_(std::move(collection)) {}

  HRESULT STDMETHODCALLTYPE put_Data(BSTR* strData) override {
    return Call([&] {
      RequirePointer(strData);
      collection_->Data(ToUtf8(*strData));
    });
  }
  HRESULT STDMETHODCALLTYPE get_Count(LONG* result) override {
    return Call([&] { PutResult(result, collection_->Count()); });
  }
  HRESULT STDMETHODCALLTYPE get_Item(VARIANT lngIndex, _DataRow** result) override {
    return Call([&] {
      RequirePointer(result);
      *result = static_cast<_DataRow*>(WrapObject(collection_->Item(ToCoreVariant(lngIndex))));
    });
  }
  HRESULT STDMETHODCALLTYPE get_CountPropertyNames(LONG* result) override {
    return Call([&] { PutResult(result, collection_->CountPropertyNames()); });
  }
  HRESULT STDMETHODCALLTYPE get_PropertyNames(LONG lngIndex, BSTR* result) override {
    return Call([&] { PutResult(result, collection_->PropertyNames(lngIndex)); });
  }
  HRESULT STDMETHODCALLTYPE get_NewEnum(IUnknown** result) override {
    return Call([&] {
      RequirePointer(result);
      *result = NewEnumVariant(collection_->NewEnum());
    });
  }
  HRESULT STDMETHODCALLTYPE BindToGrid(IDispatch** objControl, BSTR strColumns, BSTR strControlProperty,
                                       VARIANT_BOOL* result) override {
    return Call([&] {
      RequirePointer(objControl);
      LateBoundObject control(ComPtr<IDispatch>::Share(*objControl));
      PutResult(result, collection_->BindToGrid(control, ToUtf8(strColumns), ToUtf8(strControlProperty)));
    });
  }

 private:
  std::shared_ptr<IDataCollection> collection_;
};

}  // namespace

IDispatch* NewDataCollectionObject(std::shared_ptr<IDataCollection> collection) {
  return static_cast<_DataCollection*>(new DataCollectionObject(std::move(collection)));
}

HRESULT CreateDataCollectionObject(REFIID iid, void** object) {
  return CreateAndQuery<DataCollectionObject>(iid, object, std::make_shared<DataCollection>());
}

HRESULT CreateIDataCollectionObject(REFIID iid, void** object) {
  return CreateAndQuery<DataCollectionObject>(iid, object, std::make_shared<IDataCollection>());
}

}  // namespace varnex::server
