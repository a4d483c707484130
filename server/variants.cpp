#include "variants.hpp"

#include <varnex/automation_error.hpp>

#include "object_map.hpp"
#include "strings.hpp"

namespace varnex::server {
namespace {

Variant FromObject(IUnknown* object) {
  if (object == nullptr) return Variant(std::shared_ptr<Object>());
  if (std::shared_ptr<Object> core = CoreObjectOf(object)) return Variant(core);
  ComPtr<IDispatch> dispatch;
  if (FAILED(object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(dispatch.put())))) {
    throw AutomationError::Runtime(errTypeMismatch);
  }
  return Variant(std::make_shared<ForeignObject>(std::move(dispatch)));
}

Variant Converted(const VARIANT& value, VARTYPE type) {
  VARIANT converted;
  VariantInit(&converted);
  const HRESULT hr = VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, type);
  if (hr == DISP_E_OVERFLOW) throw AutomationError::Runtime(errOverflow);
  if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
  if (FAILED(hr)) throw AutomationError::Runtime(errTypeMismatch);
  Variant result = type == VT_I4 ? Variant(static_cast<Long>(converted.lVal)) : Variant(ToUtf8(converted.bstrVal));
  VariantClear(&converted);
  return result;
}

}  // namespace

Variant ToCoreVariant(const VARIANT& given) {
  const VARIANT& value = given.vt == (VT_BYREF | VT_VARIANT) ? *given.pvarVal : given;
  if (value.vt & VT_BYREF) {
    VARIANT copy;
    VariantInit(&copy);
    if (FAILED(VariantCopyInd(&copy, const_cast<VARIANT*>(&value)))) throw AutomationError::Runtime(errTypeMismatch);
    Variant result = ToCoreVariant(copy);
    VariantClear(&copy);
    return result;
  }
  switch (value.vt) {
    case VT_EMPTY: return Variant();
    case VT_NULL: throw AutomationError::Runtime(errInvalidUseOfNull);
    case VT_BOOL: return Variant::FromBoolean(value.boolVal);
    case VT_BSTR: return Variant(ToUtf8(value.bstrVal));
    case VT_DISPATCH:
    case VT_UNKNOWN: return FromObject(value.punkVal);
    case VT_I1: case VT_UI1: case VT_I2: case VT_UI2: case VT_I4: case VT_UI4: case VT_INT: case VT_UINT:
    case VT_I8: case VT_UI8: return Converted(value, VT_I4);
    case VT_R4: case VT_R8: case VT_CY: case VT_DATE: case VT_DECIMAL: return Converted(value, VT_BSTR);
    default: throw AutomationError::Runtime(errTypeMismatch);
  }
}

void ToVariant(const Variant& value, VARIANT* out) {
  VariantInit(out);
  switch (value.VarType()) {
    case vbEmpty: return;
    case vbLong:
      out->vt = VT_I4;
      out->lVal = value.AsLong();
      return;
    case vbBoolean:
      out->vt = VT_BOOL;
      out->boolVal = value.AsBoolean();
      return;
    case vbString:
      out->bstrVal = ToBstr(value.AsString());
      out->vt = VT_BSTR;
      return;
    case vbObject:
      out->pdispVal = WrapObject(value.AsObject());
      out->vt = VT_DISPATCH;
      return;
  }
}

}  // namespace varnex::server

namespace varnex::server {

std::optional<std::vector<Long>> LongsOf(SAFEARRAY* array) {
  if (array == nullptr || SafeArrayGetDim(array) == 0) return std::nullopt;
  LONG lower = 0, upper = -1;
  SafeArrayGetLBound(array, 1, &lower);
  SafeArrayGetUBound(array, 1, &upper);
  std::vector<Long> values;
  for (LONG i = lower; i <= upper; ++i) {
    LONG value = 0;
    if (FAILED(SafeArrayGetElement(array, &i, &value))) throw AutomationError::Runtime(errTypeMismatch);
    values.push_back(value);
  }
  return values;
}

}  // namespace varnex::server
