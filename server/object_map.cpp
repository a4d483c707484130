#include "object_map.hpp"

#include <unordered_map>

#include <varnex/varnex.hpp>

#include "com_ptr.hpp"
#include "errors.hpp"
#include "lock.hpp"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {

// {6d3c6a52-3a7e-4c55-9f53-1b8e7a0c2f41}
const IID IID_ICoreObject = {0x6d3c6a52, 0x3a7e, 0x4c55, {0x9f, 0x53, 0x1b, 0x8e, 0x7a, 0x0c, 0x2f, 0x41}};

namespace {

SRWLOCK wrappers_lock = SRWLOCK_INIT;

std::unordered_map<const Object*, IDispatch*>& Wrappers() {
  static std::unordered_map<const Object*, IDispatch*> wrappers;
  return wrappers;
}

IDispatch* NewWrapper(const std::shared_ptr<Object>& object) {
  if (auto row = std::dynamic_pointer_cast<Collection>(object)) return NewRowObject(row);
  if (auto data = std::dynamic_pointer_cast<IDataCollection>(object)) return NewDataCollectionObject(data);
  if (auto provider = std::dynamic_pointer_cast<DataCollectionProvider>(object)) return NewProviderObject(provider);
  if (auto source = std::dynamic_pointer_cast<DataCollectionSource>(object)) return NewSourceObject(source);
  if (auto foreign = std::dynamic_pointer_cast<ForeignObject>(object)) return foreign->Dispatch();
  throw AutomationError::Runtime(errTypeMismatch);
}

}  // namespace

IDispatch* WrapObject(const std::shared_ptr<Object>& object) {
  if (object == nullptr) return nullptr;
  {
    ExclusiveLock lock(wrappers_lock);
    if (const auto found = Wrappers().find(object.get()); found != Wrappers().end()) {
      found->second->AddRef();
      return found->second;
    }
  }
  return NewWrapper(object);
}

IUnknown* IdentityOf(IUnknown* object) {
  ComPtr<IUnknown> identity;
  ThrowIfFailed(object->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(identity.put())));
  return identity.get();
}

std::shared_ptr<Object> CoreObjectOf(IUnknown* object) {
  if (object == nullptr) return nullptr;
  ComPtr<ICoreObject> core;
  if (FAILED(object->QueryInterface(IID_ICoreObject, reinterpret_cast<void**>(core.put())))) return nullptr;
  return core->CoreObject();
}

void RememberWrapper(const Object* object, IDispatch* wrapper) {
  ExclusiveLock lock(wrappers_lock);
  Wrappers()[object] = wrapper;
}

void ForgetWrapper(const Object* object) {
  ExclusiveLock lock(wrappers_lock);
  Wrappers().erase(object);
}

}  // namespace varnex::server
