// VARIANT to and from the core's Variant. Objects of this server turn back into their core
// objects; any other COM object travels through the core as a ForeignObject.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <windows.h>
#include <oaidl.h>

#include <varnex/variant.hpp>

#include "com_ptr.hpp"

namespace varnex::server {

// A COM object of someone else's, held while the core keeps it (e.g. as a collection item).
class ForeignObject : public Object {
 public:
  explicit ForeignObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}
  // A new reference to the object.
  IDispatch* Dispatch() const { return ComPtr<IDispatch>(object_).detach(); }

 private:
  ComPtr<IDispatch> object_;
};

// Empty, integers (Long; beyond a Long error 6), Boolean, String and objects convert directly;
// other numbers and dates become their text; Null is error 94, arrays and the rest error 13.
Variant ToCoreVariant(const VARIANT& value);
// Writes value into *out (which must hold nothing): Long as VT_I4, Boolean as VT_BOOL, objects
// as VT_DISPATCH through their one wrapper.
void ToVariant(const Variant& value, VARIANT* out);

}  // namespace varnex::server

namespace varnex::server {

// The elements of a one-dimensional array of Longs; nullopt for an array that was never set.
std::optional<std::vector<Long>> LongsOf(SAFEARRAY* array);

}  // namespace varnex::server
