// The class object of a creatable class: an IClassFactory over the class's create function.
#pragma once

#include <new>

#include <windows.h>
#include <unknwn.h>

#include "module.hpp"
#include "reference_count.hpp"

namespace varnex::server {

template <HRESULT (*Create)(REFIID iid, void** object)>
class ClassFactory final : public IClassFactory {
 public:
  static HRESULT GetClassObject(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    ClassFactory* factory = new (std::nothrow) ClassFactory();
    if (factory == nullptr) return E_OUTOFMEMORY;
    const HRESULT hr = factory->QueryInterface(iid, object);
    factory->Release();
    return hr;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory)) {
      *object = static_cast<IClassFactory*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
  ULONG STDMETHODCALLTYPE Release() override { return references_.Release(this); }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return Create(iid, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    server::LockServer(lock != FALSE);
    return S_OK;
  }

 private:
  friend class ReferenceCount;
  ClassFactory() = default;
  ~ClassFactory() = default;

  ReferenceCount references_;
};

}  // namespace varnex::server
