// A COM object reached by member name, as a late-bound caller reaches it: the names go through
// IDispatch::GetIDsOfNames, and when that fails through IDispatchEx::GetDispID (script objects
// under wine answer only that).
#pragma once

#include <string>
#include <vector>

#include <windows.h>
#include <oaidl.h>

#include <varnex/late_bound.hpp>

#include "com_ptr.hpp"

namespace varnex::server {

// Nothing in place of the object fails every call with error 91.
class LateBoundObject : public LateBound {
 public:
  explicit LateBoundObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  // The name in the object's type information ("Object" when it has none).
  std::string TypeName() override;
  Variant Get(const std::string& member, const std::vector<Variant>& args) override;
  void Let(const std::string& member, const std::vector<Variant>& args, const Variant& value) override;
  void Set(const std::string& member, const Variant& object) override;

 private:
  // Nothing in place of the object: error 91.
  void RequireObject() const;
  DISPID IdOf(const std::string& member);
  Variant Invoke(const std::string& member, WORD flags, const std::vector<Variant>& args, const Variant* value);

  ComPtr<IDispatch> object_;
};

}  // namespace varnex::server
