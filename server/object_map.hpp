// One wrapper per core object: the same core object always reaches COM callers as the same
// IUnknown, and a wrapper passed back in gives its core object again.
#pragma once

#include <memory>

#include <windows.h>
#include <oaidl.h>

#include <varnex/automation_error.hpp>
#include <varnex/object.hpp>

namespace varnex::server {

// Answered by QueryInterface on every wrapper of a core object (in process only).
struct ICoreObject : IUnknown {
  virtual std::shared_ptr<Object> CoreObject() = 0;
};
extern const IID IID_ICoreObject;

// The wrapper of the core object (a new reference), made on first use; null for null.
IDispatch* WrapObject(const std::shared_ptr<Object>& object);
// The object's IUnknown, by which COM compares identities (no reference kept).
IUnknown* IdentityOf(IUnknown* object);
// The core object behind a wrapper of this server; null for any other object.
std::shared_ptr<Object> CoreObjectOf(IUnknown* object);

// Kept by the wrappers themselves.
void RememberWrapper(const Object* object, IDispatch* wrapper);
void ForgetWrapper(const Object* object);

}  // namespace varnex::server

namespace varnex::server {

// The core object of a wrapper, as a T: null for Nothing; error 13 for an object of another kind.
template <typename T>
std::shared_ptr<T> CoreObjectAs(IUnknown* object) {
  if (object == nullptr) return nullptr;
  std::shared_ptr<T> core = std::dynamic_pointer_cast<T>(CoreObjectOf(object));
  if (core == nullptr) throw AutomationError::Runtime(errTypeMismatch);
  return core;
}

}  // namespace varnex::server
