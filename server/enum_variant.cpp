// IEnumVARIANT over the core's Enumerator: what For Each asks a collection for.
#include <new>

#include <varnex/varnex.hpp>

#include "errors.hpp"
#include "reference_count.hpp"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {
namespace {

class EnumVariant final : public IEnumVARIANT {
 public:
  explicit EnumVariant(std::shared_ptr<Enumerator> enumerator) : enumerator_(std::move(enumerator)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IEnumVARIANT)) {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    *object = static_cast<IEnumVARIANT*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
  ULONG STDMETHODCALLTYPE Release() override { return references_.Release(this); }

  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* items, ULONG* fetched) override {
    ULONG done = 0;
    const HRESULT hr = Guard(IID_IEnumVARIANT, [&] {
      RequirePointer(items);
      Variant item;
      while (done < count && enumerator_->Next(item)) ToVariant(item, &items[done++]);
    });
    if (fetched != nullptr) *fetched = done;
    return FAILED(hr) ? hr : done == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    bool all = false;
    const HRESULT hr = Guard(IID_IEnumVARIANT, [&] { all = enumerator_->Skip(static_cast<Long>(count)); });
    return FAILED(hr) ? hr : all ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    return Guard(IID_IEnumVARIANT, [&] { enumerator_->Reset(); });
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
    return Guard(IID_IEnumVARIANT, [&] {
      RequirePointer(copy);
      *copy = new EnumVariant(std::make_shared<Enumerator>(*enumerator_));
    });
  }

 private:
  ~EnumVariant() = default;
  friend class server::ReferenceCount;

  ReferenceCount references_;
  std::shared_ptr<Enumerator> enumerator_;
};

}  // namespace

IUnknown* NewEnumVariant(std::shared_ptr<Enumerator> enumerator) {
  if (enumerator == nullptr) return nullptr;
  return new EnumVariant(std::move(enumerator));
}

}  // namespace varnex::server
