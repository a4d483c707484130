// Varnex.DataCollectionProvider: the automation face of the read-only provider (LoadData).
#include <varnex/varnex.hpp>

#include "classes.hpp"
#include "com_object.hpp"
#include "parameters.hpp"
#include "varnex.h"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {
namespace {

class ProviderObject final : public ComObject<_DataCollectionProvider> {
 public:
  explicit ProviderObject(std::shared_ptr<DataCollectionProvider> provider)
      : ComObject(provider), provider_(std::move(provider)) {}

  HRESULT STDMETHODCALLTYPE LoadData(_IDataCollection** objColl, SAFEARRAY** arrDataTypes, BSTR strFields) override {
    return Call([&] {
      RequirePointer(objColl);
      RequirePointer(arrDataTypes);
      provider_->LoadData(CoreObjectAs<IDataCollection>(*objColl), LongsOf(*arrDataTypes), ToUtf8(strFields));
    });
  }

 private:
  std::shared_ptr<DataCollectionProvider> provider_;
};

}  // namespace

IDispatch* NewProviderObject(std::shared_ptr<DataCollectionProvider> provider) {
  return static_cast<_DataCollectionProvider*>(new ProviderObject(std::move(provider)));
}

HRESULT CreateProviderObject(REFIID iid, void** object) {
  return CreateAndQuery<ProviderObject>(iid, object, std::make_shared<DataCollectionProvider>());
}

}  // namespace varnex::server
