// Varnex.DataCollectionProvider: the automation face of the read-only provider (LoadData), and
// the OLE DB simple provider that bound controls call through its vtable.
#include <algorithm>
#include <cstdint>

#include <varnex/varnex.hpp>

#include "classes.hpp"
#include "com_object.hpp"
#include "data_binding_interfaces.hpp"
#include "parameters.hpp"
#include "provider_listener.hpp"
#include "varnex.h"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {
namespace {

// A row or column of the platform's width as the core counts it: values beyond a Long stand
// at its ends, where they are as far out of the table as they were.
Long CoreIndex(LONGLONG value) {
  return static_cast<Long>(std::clamp<LONGLONG>(value, INT32_MIN, INT32_MAX));
}

// Out values are written whole, in the width the interface gives them.
template <typename Out, typename Value>
void PutWhole(Out* out, Value value) {
  RequirePointer(out);
  *out = static_cast<Out>(value);
}

// A value the provider discards: whatever cannot be converted counts as Empty.
Variant Discarded(const VARIANT& value) {
  return Swallow(Variant{}, [&] { return ToCoreVariant(value); });
}

class ProviderObject final : public ComObject<_DataCollectionProvider>, public ::OLEDBSimpleProvider {
 public:
  explicit ProviderObject(std::shared_ptr<DataCollectionProvider> provider)
      : ComObject(provider), provider_(std::move(provider)) {}

  // IUnknown, for both interfaces.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    return ComObject::QueryInterface(iid, object);
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ComObject::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return ComObject::Release(); }

  HRESULT STDMETHODCALLTYPE LoadData(_IDataCollection** objColl, SAFEARRAY** arrDataTypes, BSTR strFields) override {
    return Call([&] {
      RequirePointer(objColl);
      RequirePointer(arrDataTypes);
      provider_->LoadData(CoreObjectAs<IDataCollection>(*objColl), LongsOf(*arrDataTypes), ToUtf8(strFields));
    });
  }

  // OLEDBSimpleProvider, in its slot order.
  HRESULT STDMETHODCALLTYPE getRowCount(DBROWCOUNT* pcRows) override {
    return Simple([&] { PutWhole(pcRows, provider_->getRowCount()); });
  }
  HRESULT STDMETHODCALLTYPE getColumnCount(DB_LORDINAL* pcColumns) override {
    return Simple([&] { PutWhole(pcColumns, provider_->getColumnCount()); });
  }
  HRESULT STDMETHODCALLTYPE getRWStatus(DBROWCOUNT iRow, DB_LORDINAL iColumn, OSPRW* prwStatus) override {
    return Simple([&] { PutWhole(prwStatus, provider_->getRWStatus(CoreIndex(iRow), CoreIndex(iColumn))); });
  }
  HRESULT STDMETHODCALLTYPE getVariant(DBROWCOUNT iRow, DB_LORDINAL iColumn, OSPFORMAT format,
                                       VARIANT* pVar) override {
    return Simple([&] {
      RequirePointer(pVar);
      VariantInit(pVar);
      ToVariant(provider_->getVariant(CoreIndex(iRow), CoreIndex(iColumn), format), pVar);
    });
  }
  HRESULT STDMETHODCALLTYPE setVariant(DBROWCOUNT iRow, DB_LORDINAL iColumn, OSPFORMAT format, VARIANT Var) override {
    return Simple([&] { provider_->setVariant(CoreIndex(iRow), CoreIndex(iColumn), format, Discarded(Var)); });
  }
  HRESULT STDMETHODCALLTYPE getLocale(BSTR* pbstrLocale) override {
    return Simple([&] { PutResult(pbstrLocale, provider_->getLocale()); });
  }
  HRESULT STDMETHODCALLTYPE deleteRows(DBROWCOUNT iRow, DBROWCOUNT cRows, DBROWCOUNT* pcRowsDeleted) override {
    return Simple([&] { PutWhole(pcRowsDeleted, provider_->deleteRows(CoreIndex(iRow), CoreIndex(cRows))); });
  }
  HRESULT STDMETHODCALLTYPE insertRows(DBROWCOUNT iRow, DBROWCOUNT cRows, DBROWCOUNT* pcRowsInserted) override {
    return Simple([&] { PutWhole(pcRowsInserted, provider_->insertRows(CoreIndex(iRow), CoreIndex(cRows))); });
  }
  HRESULT STDMETHODCALLTYPE find(DBROWCOUNT iRowStart, DB_LORDINAL iColumn, VARIANT val, OSPFIND findFlags,
                                 OSPCOMP compType, DBROWCOUNT* piRowFound) override {
    return Simple([&] {
      PutWhole(piRowFound, provider_->find(CoreIndex(iRowStart), CoreIndex(iColumn), Discarded(val), findFlags,
                                           compType));
    });
  }
  HRESULT STDMETHODCALLTYPE addOLEDBSimpleProviderListener(::OLEDBSimpleProviderListener* pospIListener) override {
    return Simple([&] { provider_->addOLEDBSimpleProviderListener(listeners_.AdapterOf(pospIListener)); });
  }
  HRESULT STDMETHODCALLTYPE removeOLEDBSimpleProviderListener(::OLEDBSimpleProviderListener* pospIListener) override {
    return Simple([&] { provider_->removeOLEDBSimpleProviderListener(listeners_.AdapterOf(pospIListener)); });
  }
  HRESULT STDMETHODCALLTYPE isAsync(WINBOOL* pbAsynch) override {
    return Simple([&] { PutWhole(pbAsynch, provider_->isAsync() != vbFalse ? TRUE : FALSE); });
  }
  HRESULT STDMETHODCALLTYPE getEstimatedRows(DBROWCOUNT* piRows) override {
    return Simple([&] { PutWhole(piRows, provider_->getEstimatedRows()); });
  }
  HRESULT STDMETHODCALLTYPE stopTransfer() override {
    return Simple([&] { provider_->stopTransfer(); });
  }

 protected:
  void* OtherInterface(REFIID iid) override {
    return IsEqualIID(iid, IID_OLEDBSimpleProvider) ? static_cast<::OLEDBSimpleProvider*>(this) : nullptr;
  }

 private:
  template <typename Body>
  HRESULT Simple(Body&& body) {
    return CallAs(IID_OLEDBSimpleProvider, std::forward<Body>(body));
  }

  std::shared_ptr<DataCollectionProvider> provider_;
  ProviderListeners listeners_;
};

}  // namespace

IDispatch* NewProviderObject(std::shared_ptr<DataCollectionProvider> provider) {
  return static_cast<_DataCollectionProvider*>(new ProviderObject(std::move(provider)));
}

HRESULT CreateProviderObject(REFIID iid, void** object) {
  return CreateAndQuery<ProviderObject>(iid, object, std::make_shared<DataCollectionProvider>());
}

}  // namespace varnex::server
