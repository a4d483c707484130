#include "late_bound_object.hpp"

#include <windows.h>
#include <dispex.h>

#include "errors.hpp"
#include "strings.hpp"
#include "variants.hpp"

namespace varnex::server {
namespace {

// The caller's arguments as DISPPARAMS want them: in reverse order, the put value first.
class Arguments {
 public:
  Arguments(const std::vector<Variant>& args, const Variant* value) {
    values_.resize(args.size() + (value != nullptr ? 1 : 0));
    for (VARIANT& v : values_) VariantInit(&v);
    std::size_t at = 0;
    if (value != nullptr) ToVariant(*value, &values_[at++]);
    for (auto arg = args.rbegin(); arg != args.rend(); ++arg) ToVariant(*arg, &values_[at++]);
  }
  ~Arguments() {
    for (VARIANT& v : values_) VariantClear(&v);
  }
  DISPPARAMS Params(DISPID* put_id, bool is_put) {
    return {values_.data(), is_put ? put_id : nullptr, static_cast<UINT>(values_.size()), is_put ? 1u : 0u};
  }

 private:
  std::vector<VARIANT> values_;
};

}  // namespace

std::string LateBoundObject::TypeName() {
  RequireObject();
  ComPtr<ITypeInfo> info;
  BSTR name = nullptr;
  if (FAILED(object_->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info ||
      FAILED(info->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) {
    return "Object";
  }
  std::string text = ToUtf8(name);
  SysFreeString(name);
  return text;
}

void LateBoundObject::RequireObject() const {
  if (!object_) throw AutomationError::Runtime(errObjectNotSet);
}

DISPID LateBoundObject::IdOf(const std::string& member) {
  RequireObject();
  BSTR name = ToBstr(member);
  DISPID id = DISPID_UNKNOWN;
  HRESULT hr = object_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr)) {
    ComPtr<IDispatchEx> expando;
    if (SUCCEEDED(object_->QueryInterface(__uuidof(IDispatchEx), reinterpret_cast<void**>(expando.put())))) {
      hr = expando->GetDispID(name, fdexNameCaseInsensitive, &id);
    }
  }
  SysFreeString(name);
  if (FAILED(hr)) throw AutomationError::Runtime(438);
  return id;
}

Variant LateBoundObject::Invoke(const std::string& member, WORD flags, const std::vector<Variant>& args,
                                const Variant* value) {
  const DISPID id = IdOf(member);
  Arguments arguments(args, value);
  DISPID put_id = DISPID_PROPERTYPUT;
  DISPPARAMS params = arguments.Params(&put_id, value != nullptr);
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception{};
  HRESULT hr = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, &result, &exception, nullptr);
  if (hr == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
    AutomationError error(exception.scode != 0 ? exception.scode : exception.wCode, ToUtf8(exception.bstrSource),
                          ToUtf8(exception.bstrDescription));
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    throw error;
  }
  ThrowIfFailed(hr);
  Variant converted = ToCoreVariant(result);
  VariantClear(&result);
  return converted;
}

Variant LateBoundObject::Get(const std::string& member, const std::vector<Variant>& args) {
  return Invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, args, nullptr);
}

void LateBoundObject::Let(const std::string& member, const std::vector<Variant>& args, const Variant& value) {
  Invoke(member, DISPATCH_PROPERTYPUT, args, &value);
}

void LateBoundObject::Set(const std::string& member, const Variant& object) {
  Invoke(member, DISPATCH_PROPERTYPUTREF, {}, &object);
}

}  // namespace varnex::server
