// The common frame of the server's automation objects: reference counting that keeps the DLL
// loaded, ISupportErrorInfo, IDispatch over the type library, the wrapper identity of the core
// object, and Call, the guard that every method body runs in.
#pragma once

#include <memory>
#include <utility>

#include <windows.h>
#include <oaidl.h>

#include "dispatch.hpp"
#include "errors.hpp"
#include "module.hpp"
#include "object_map.hpp"
#include "reference_count.hpp"

namespace varnex::server {

// Interface is the dual interface the object implements; Dispatch the one whose members its
// IDispatch answers (DataCollection answers those of _IDataCollection).
template <typename Interface, typename Dispatch = Interface>
class ComObject : public Interface, public ISupportErrorInfo, public ICoreObject {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) || IsEqualIID(iid, __uuidof(Interface)) ||
        IsEqualIID(iid, __uuidof(Dispatch))) {
      *object = static_cast<Interface*>(this);
    } else if (IsEqualIID(iid, IID_ISupportErrorInfo)) {
      *object = static_cast<ISupportErrorInfo*>(this);
    } else if (IsEqualIID(iid, IID_ICoreObject) && core_ != nullptr) {
      *object = static_cast<ICoreObject*>(this);
    } else if (void* other = OtherInterface(iid)) {
      *object = other;
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
  ULONG STDMETHODCALLTYPE Release() override { return references_.Release(this); }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** info) override {
    if (index != 0) return DISP_E_BADINDEX;
    return Dispatcher::Of(__uuidof(Dispatch)).GetTypeInfo(info);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return Dispatcher::Of(__uuidof(Dispatch)).GetIDsOfNames(names, count, ids);
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO* exception, UINT* argument_error) override {
    return Dispatcher::Of(__uuidof(Dispatch))
        .Invoke(static_cast<Dispatch*>(this), id, flags, params, result, exception, argument_error);
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
    return IsEqualIID(iid, __uuidof(Interface)) || IsEqualIID(iid, __uuidof(Dispatch)) || OtherInterface(iid) != nullptr
               ? S_OK
               : S_FALSE;
  }

  std::shared_ptr<Object> CoreObject() override { return core_; }

  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

 protected:
  friend class ReferenceCount;
  // core: the core object this wrapper stands for, or null when it holds none that callers share.
  explicit ComObject(std::shared_ptr<Object> core = nullptr) : core_(std::move(core)) {
    if (core_ != nullptr) RememberWrapper(core_.get(), static_cast<Interface*>(this));
  }
  virtual ~ComObject() {
    if (core_ != nullptr) ForgetWrapper(core_.get());
  }

  // Another interface that the object implements beside its dual one (no reference added), or
  // null. Its failures set the error object as the dual interface's do (see CallAs).
  virtual void* OtherInterface(REFIID) { return nullptr; }

  // Runs a method body inside the error boundary.
  template <typename Body>
  HRESULT Call(Body&& body) {
    return Guard(__uuidof(Interface), std::forward<Body>(body));
  }
  // The same for a method of another interface, named by iid in the error object.
  template <typename Body>
  HRESULT CallAs(REFIID iid, Body&& body) {
    return Guard(iid, std::forward<Body>(body));
  }

 private:
  ReferenceCount references_;
  std::shared_ptr<Object> core_;
};

// Creates a wrapper and hands out the interface asked for (the creation's reference is dropped).
template <typename Wrapper, typename... Args>
HRESULT CreateAndQuery(REFIID iid, void** object, Args&&... args) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  return Guard(IID_IUnknown, [&] {
    Wrapper* wrapper = new Wrapper(std::forward<Args>(args)...);
    const HRESULT hr = wrapper->QueryInterface(iid, object);
    wrapper->Release();
    ThrowIfFailed(hr);
  });
}

}  // namespace varnex::server
