// Varnex.DataCollectionSource: the automation face of the data source (Data, Fields, DataTypes),
// and the data source that a bound control asks for its data through its vtable.
#include <algorithm>
#include <vector>

#include <varnex/varnex.hpp>

#include "classes.hpp"
#include "com_object.hpp"
#include "data_binding_interfaces.hpp"
#include "parameters.hpp"
#include "varnex.h"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {
namespace {

class SourceObject final : public ComObject<_DataCollectionSource>, public ::DataSource {
 public:
  explicit SourceObject(std::shared_ptr<DataCollectionSource> source) : ComObject(source), source_(std::move(source)) {}

  // IUnknown, for both interfaces.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    return ComObject::QueryInterface(iid, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ComObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return ComObject::Release(); }

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

  // DataSource. Every member name gives the same data: a freshly loaded provider, handed out as
  // the interface asked for.
  HRESULT STDMETHODCALLTYPE getDataMember(DataMember bstrDM, REFIID riid, IUnknown** ppunk) override {
    return Source([&] {
      RequirePointer(ppunk);
      *ppunk = nullptr;
      ComPtr<IDispatch> provider = ComPtr<IDispatch>::Attach(WrapObject(source_->GetDataMember(ToUtf8(bstrDM))));
      ThrowIfFailed(provider->QueryInterface(riid, reinterpret_cast<void**>(ppunk)));
    });
  }
  // The source names no data members of its own: only the default one, which is not counted.
  HRESULT STDMETHODCALLTYPE getDataMemberName(LONG, DataMember* pbstrDM) override {
    return Source([&] {
      RequirePointer(pbstrDM);
      *pbstrDM = nullptr;
      throw AutomationError::Runtime(errSubscriptOutOfRange);
    });
  }
  HRESULT STDMETHODCALLTYPE getDataMemberCount(LONG* plCount) override {
    return Source([&] { PutResult(plCount, 0); });
  }
  // Listeners are kept until removed; the data members never change, so none is ever called.
  HRESULT STDMETHODCALLTYPE addDataSourceListener(DataSourceListener* pDSL) override {
    return Source([&] {
      if (pDSL != nullptr) listeners_.push_back(ComPtr<DataSourceListener>::Share(pDSL));
    });
  }
  HRESULT STDMETHODCALLTYPE removeDataSourceListener(DataSourceListener* pDSL) override {
    return Source([&] {
      if (pDSL == nullptr) return;
      IUnknown* identity = IdentityOf(pDSL);
      const auto found = std::find_if(listeners_.begin(), listeners_.end(),
                                      [&](const auto& listener) { return IdentityOf(listener.get()) == identity; });
      if (found != listeners_.end()) listeners_.erase(found);
    });
  }

 protected:
  void* OtherInterface(REFIID iid) override {
    return IsEqualIID(iid, IID_DataSource) ? static_cast<::DataSource*>(this) : nullptr;
  }

 private:
  template <typename Body>
  HRESULT Source(Body&& body) {
    return CallAs(IID_DataSource, std::forward<Body>(body));
  }

  std::shared_ptr<DataCollectionSource> source_;
  std::vector<ComPtr<DataSourceListener>> listeners_;
};

}  // namespace

IDispatch* NewSourceObject(std::shared_ptr<DataCollectionSource> source) {
  return static_cast<_DataCollectionSource*>(new SourceObject(std::move(source)));
}

HRESULT CreateSourceObject(REFIID iid, void** object) {
  return CreateAndQuery<SourceObject>(iid, object, std::make_shared<DataCollectionSource>());
}

}  // namespace varnex::server
