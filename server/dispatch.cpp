#include "dispatch.hpp"

#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "com_ptr.hpp"
#include "lock.hpp"
#include "module.hpp"

namespace varnex::server {
namespace {

// A parameter's type as the call needs it: the VARIANT type of the temporary (an enumeration is
// VT_I4, an interface VT_DISPATCH or VT_UNKNOWN with its IID) and whether a pointer to it is passed.
struct ParamType {
  VARTYPE vt = VT_EMPTY;
  bool by_ref = false;
  IID iid = IID_NULL;
};

ParamType Resolve(ITypeInfo* info, const TYPEDESC& desc) {
  const TYPEDESC* d = &desc;
  int pointers = 0;
  while (d->vt == VT_PTR) {
    ++pointers;
    d = d->lptdesc;
  }
  ParamType type;
  if (d->vt == VT_USERDEFINED) {
    ComPtr<ITypeInfo> referenced;
    TYPEATTR* attr = nullptr;
    if (SUCCEEDED(info->GetRefTypeInfo(d->hreftype, referenced.put())) &&
        SUCCEEDED(referenced->GetTypeAttr(&attr))) {
      if (attr->typekind == TKIND_ENUM) {
        type.vt = VT_I4;
      } else if (attr->typekind == TKIND_INTERFACE || attr->typekind == TKIND_DISPATCH) {
        type.vt = attr->wTypeFlags & (TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE) ? VT_DISPATCH : VT_UNKNOWN;
        type.iid = attr->guid;
        --pointers;  // an interface is always reached through a pointer
      }
      referenced->ReleaseTypeAttr(attr);
    }
  } else if (d->vt == VT_SAFEARRAY) {
    type.vt = VT_ARRAY | d->lptdesc->vt;
  } else {
    type.vt = d->vt;
    if (d->vt == VT_DISPATCH) type.iid = IID_IDispatch;
    if (d->vt == VT_UNKNOWN) type.iid = IID_IUnknown;
  }
  type.by_ref = pointers > 0;
  return type;
}

// The address of a VARIANT's value, as SafeArrayGetElement and a by-reference call take it.
void* ValueAddress(VARIANT& v) { return &v.lVal; }

// Copies a script array into a new one-dimensional array of element type `element`, converting
// element by element. An Empty variant or an undimensioned array gives no array at all.
HRESULT ConvertArray(const VARIANT& value, VARTYPE element, VARIANT& out) {
  out.vt = VT_ARRAY | element;
  out.parray = nullptr;
  if (value.vt == VT_EMPTY) return S_OK;
  if (!(value.vt & VT_ARRAY)) return DISP_E_TYPEMISMATCH;
  SAFEARRAY* in = value.parray;
  if (in == nullptr || SafeArrayGetDim(in) == 0) return S_OK;
  if (SafeArrayGetDim(in) != 1) return DISP_E_TYPEMISMATCH;
  LONG lower = 0, upper = -1;
  SafeArrayGetLBound(in, 1, &lower);
  SafeArrayGetUBound(in, 1, &upper);
  VARTYPE in_type = VT_EMPTY;
  SafeArrayGetVartype(in, &in_type);
  SAFEARRAYBOUND bound{static_cast<ULONG>(upper - lower + 1), lower};
  SAFEARRAY* converted = SafeArrayCreate(element, 1, &bound);
  if (converted == nullptr) return E_OUTOFMEMORY;
  for (LONG i = lower; i <= upper; ++i) {
    VARIANT item;
    VariantInit(&item);
    HRESULT hr = in_type == VT_VARIANT ? SafeArrayGetElement(in, &i, &item)
                                       : (item.vt = in_type, SafeArrayGetElement(in, &i, ValueAddress(item)));
    if (SUCCEEDED(hr)) hr = VariantChangeType(&item, &item, 0, element);
    if (SUCCEEDED(hr)) {
      const bool pointer_sized = element == VT_BSTR || element == VT_DISPATCH || element == VT_UNKNOWN;
      hr = SafeArrayPutElement(converted, &i, pointer_sized ? item.byref : ValueAddress(item));
    }
    VariantClear(&item);
    if (FAILED(hr)) {
      SafeArrayDestroy(converted);
      return hr == E_OUTOFMEMORY ? hr : DISP_E_TYPEMISMATCH;
    }
  }
  out.parray = converted;
  return S_OK;
}

bool IsNumber(VARTYPE vt) {
  switch (vt) {
    case VT_I1: case VT_UI1: case VT_I2: case VT_UI2: case VT_I4: case VT_UI4: case VT_INT: case VT_UINT:
    case VT_I8: case VT_UI8: case VT_R4: case VT_R8: case VT_CY: case VT_DECIMAL: return true;
    default: return false;
  }
}

// Converts a caller's argument (by value or by reference) to the declared type.
HRESULT ConvertArgument(const VARIANT& given, const ParamType& type, VARIANT& out) {
  VARIANT value;
  VariantInit(&value);
  HRESULT hr = VariantCopyInd(&value, given.vt == (VT_BYREF | VT_VARIANT) ? given.pvarVal : const_cast<VARIANT*>(&given));
  if (FAILED(hr)) return hr;
  if (type.vt == VT_VARIANT) {
    out = value;  // the temporary takes over the copy
    return S_OK;
  }
  if (type.vt & VT_ARRAY) {
    hr = ConvertArray(value, type.vt & VT_TYPEMASK, out);
  } else if (type.vt == VT_DISPATCH || type.vt == VT_UNKNOWN) {
    if (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN) {
      hr = DISP_E_TYPEMISMATCH;
    } else {
      out.vt = type.vt;
      out.punkVal = nullptr;
      if (value.punkVal != nullptr && FAILED(value.punkVal->QueryInterface(type.iid, reinterpret_cast<void**>(&out.punkVal)))) {
        hr = DISP_E_TYPEMISMATCH;
      }
    }
  } else if (type.vt == VT_BOOL && IsNumber(value.vt)) {
    // A Boolean reaches the core as its 16-bit value, so that 1 is not taken for True (-1).
    hr = VariantChangeType(&out, &value, 0, VT_I2);
    if (SUCCEEDED(hr)) out.vt = VT_BOOL;
    if (hr != DISP_E_OVERFLOW && hr != E_OUTOFMEMORY && FAILED(hr)) hr = DISP_E_TYPEMISMATCH;
  } else {
    hr = VariantChangeType(&out, &value, 0, type.vt);
    if (hr != DISP_E_OVERFLOW && hr != E_OUTOFMEMORY && FAILED(hr)) hr = DISP_E_TYPEMISMATCH;
  }
  VariantClear(&value);
  return hr;
}

std::size_t ValueSize(VARTYPE vt) {
  switch (vt) {
    case VT_I1: case VT_UI1: return 1;
    case VT_I2: case VT_UI2: case VT_BOOL: return 2;
    case VT_I4: case VT_UI4: case VT_INT: case VT_UINT: case VT_R4: case VT_ERROR: return 4;
    case VT_R8: case VT_CY: case VT_DATE: case VT_I8: case VT_UI8: return 8;
    default: return 0;
  }
}

// Writes the value of a by-reference parameter back into the caller's variable, converted to the
// variable's own type when the caller passed a typed reference.
void WriteBack(const VARIANT& caller, const VARIANT& value) {
  if (caller.vt == (VT_BYREF | VT_VARIANT)) {
    VARIANT copy;
    VariantInit(&copy);
    if (SUCCEEDED(VariantCopy(&copy, const_cast<VARIANT*>(&value)))) {
      VariantClear(caller.pvarVal);
      *caller.pvarVal = copy;
    }
    return;
  }
  const VARTYPE want = caller.vt & ~VT_BYREF;
  VARIANT converted;
  VariantInit(&converted);
  if (FAILED(VariantChangeType(&converted, const_cast<VARIANT*>(&value), 0, want))) return;
  if (want == VT_BSTR) {
    SysFreeString(*caller.pbstrVal);
    *caller.pbstrVal = converted.bstrVal;
  } else if (want == VT_DISPATCH || want == VT_UNKNOWN) {
    if (*caller.ppunkVal != nullptr) (*caller.ppunkVal)->Release();
    *caller.ppunkVal = converted.punkVal;
  } else if (const std::size_t size = ValueSize(want)) {
    std::memcpy(caller.byref, ValueAddress(converted), size);
  } else {
    VariantClear(&converted);
  }
}

void FillException(EXCEPINFO* exception, HRESULT hr) {
  if (exception == nullptr) return;
  std::memset(exception, 0, sizeof *exception);
  exception->scode = hr;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) == S_OK && info) {
    info->GetSource(&exception->bstrSource);
    info->GetDescription(&exception->bstrDescription);
    info->GetHelpFile(&exception->bstrHelpFile);
    info->GetHelpContext(&exception->dwHelpContext);
  }
}

bool IsOmitted(const VARIANT* argument) {
  if (argument == nullptr) return true;
  const VARIANT* value = argument->vt == (VT_BYREF | VT_VARIANT) ? argument->pvarVal : argument;
  return value->vt == VT_ERROR && value->scode == DISP_E_PARAMNOTFOUND;
}

// The temporaries of one call: cleared whatever way the call ends.
class CallFrame {
 public:
  explicit CallFrame(std::size_t count) : temps(count), args(count), types(count), pointers(count) {
    std::memset(temps.data(), 0, sizeof(VARIANT) * count);
    std::memset(args.data(), 0, sizeof(VARIANT) * count);
  }
  ~CallFrame() {
    for (VARIANT& temp : temps) VariantClear(&temp);
  }
  std::vector<VARIANT> temps;     // the values in their declared types
  std::vector<VARIANTARG> args;   // references to by-reference temporaries
  std::vector<VARTYPE> types;
  std::vector<VARIANTARG*> pointers;

  void PassByValue(std::size_t k, VARTYPE vt) {
    types[k] = vt;
    pointers[k] = &temps[k];
  }
  void PassByReference(std::size_t k, VARTYPE vt) {
    args[k].vt = VT_BYREF | vt;
    args[k].byref = vt == VT_VARIANT ? static_cast<void*>(&temps[k]) : ValueAddress(temps[k]);
    types[k] = args[k].vt;
    pointers[k] = &args[k];
  }
};

SRWLOCK dispatchers_lock = SRWLOCK_INIT;

ITypeLib* Library() {
  static ITypeLib* library = [] {
    ITypeLib* loaded = nullptr;
    LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, &loaded);
    return loaded;
  }();
  return library;
}

}  // namespace

Dispatcher& Dispatcher::Of(REFIID iid) {
  static std::vector<std::pair<IID, std::unique_ptr<Dispatcher>>> dispatchers;
  ExclusiveLock lock(dispatchers_lock);
  for (auto& [known, dispatcher] : dispatchers) {
    if (IsEqualIID(known, iid)) return *dispatcher;
  }
  ITypeInfo* dispatch_info = nullptr;
  ITypeInfo* interface_info = nullptr;
  if (ITypeLib* library = Library(); library != nullptr && SUCCEEDED(library->GetTypeInfoOfGuid(iid, &dispatch_info))) {
    HREFTYPE vtable_type = 0;
    if (FAILED(dispatch_info->GetRefTypeOfImplType(-1, &vtable_type)) ||
        FAILED(dispatch_info->GetRefTypeInfo(vtable_type, &interface_info))) {
      dispatch_info->AddRef();
      interface_info = dispatch_info;
    }
  }
  dispatchers.emplace_back(iid, std::make_unique<Dispatcher>(dispatch_info, interface_info));
  return *dispatchers.back().second;
}

Dispatcher::Dispatcher(ITypeInfo* dispatch_info, ITypeInfo* interface_info)
    : dispatch_info_(dispatch_info), interface_info_(interface_info) {
  TYPEATTR* attr = nullptr;
  if (interface_info_ == nullptr || FAILED(interface_info_->GetTypeAttr(&attr))) return;
  for (UINT i = 0; i < attr->cFuncs; ++i) {
    FUNCDESC* f = nullptr;
    if (FAILED(interface_info_->GetFuncDesc(i, &f))) continue;
    members_.push_back({f->memid, f->invkind, i});
    interface_info_->ReleaseFuncDesc(f);
  }
  interface_info_->ReleaseTypeAttr(attr);
}

Dispatcher::~Dispatcher() {
  if (dispatch_info_ != nullptr) dispatch_info_->Release();
  if (interface_info_ != nullptr) interface_info_->Release();
}

HRESULT Dispatcher::GetTypeInfo(ITypeInfo** info) {
  if (info == nullptr) return E_POINTER;
  *info = dispatch_info_;
  if (dispatch_info_ == nullptr) return TYPE_E_CANTLOADLIBRARY;
  dispatch_info_->AddRef();
  return S_OK;
}

HRESULT Dispatcher::GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids) {
  if (interface_info_ == nullptr) return TYPE_E_CANTLOADLIBRARY;
  return interface_info_->GetIDsOfNames(names, count, ids);
}

FUNCDESC* Dispatcher::FindMember(DISPID id, WORD flags) const {
  const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
  const Member* exact = nullptr;
  const Member* other = nullptr;
  for (const Member& member : members_) {
    const bool is_put = member.kind == INVOKE_PROPERTYPUT || member.kind == INVOKE_PROPERTYPUTREF;
    if (member.id != id || is_put != put) continue;
    const bool matches = put ? (member.kind == INVOKE_PROPERTYPUTREF ? flags & DISPATCH_PROPERTYPUTREF
                                                                       : flags & DISPATCH_PROPERTYPUT)
                             : (member.kind == INVOKE_PROPERTYGET ? flags & DISPATCH_PROPERTYGET
                                                                    : flags & DISPATCH_METHOD);
    if (matches) {
      exact = &member;
      break;
    }
    if (other == nullptr) other = &member;
  }
  // Script hosts differ in the flag they use: a get answers a method call and the other way
  // round, and a put an object assignment.
  const Member* chosen = exact != nullptr ? exact : other;
  FUNCDESC* f = nullptr;
  if (chosen == nullptr || FAILED(interface_info_->GetFuncDesc(chosen->index, &f))) return nullptr;
  return f;
}

HRESULT Dispatcher::Invoke(IUnknown* target, DISPID id, WORD flags, DISPPARAMS* params, VARIANT* result,
                           EXCEPINFO* exception, UINT* argument_error) {
  static DISPPARAMS no_params = {nullptr, nullptr, 0, 0};
  if (params == nullptr) params = &no_params;
  FUNCDESC* f = FindMember(id, flags);
  if (f == nullptr) return DISP_E_MEMBERNOTFOUND;
  struct Releaser {
    ITypeInfo* info;
    FUNCDESC* f;
    ~Releaser() { info->ReleaseFuncDesc(f); }
  } releaser{interface_info_, f};

  const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
  const std::size_t count = f->cParams;
  const bool has_retval = count > 0 && (f->lprgelemdescParam[count - 1].paramdesc.wParamFlags & PARAMFLAG_FRETVAL);
  const std::size_t inputs = count - (has_retval ? 1 : 0);
  const UINT total = params->cArgs;
  const UINT named = params->cNamedArgs;
  if (put ? (named != 1 || params->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) : named != 0) {
    return put ? DISP_E_PARAMNOTOPTIONAL : DISP_E_NONAMEDARGS;
  }
  const std::size_t positional = total - named;
  if (positional > inputs - (put ? 1 : 0)) return DISP_E_BADPARAMCOUNT;

  // The caller's arguments in declaration order (null: not supplied).
  std::vector<const VARIANT*> given(inputs, nullptr);
  for (std::size_t j = 0; j < positional; ++j) given[j] = &params->rgvarg[total - 1 - j];
  if (put) given[inputs - 1] = &params->rgvarg[0];

  CallFrame frame(count);
  std::vector<ParamType> types(count);
  for (std::size_t k = 0; k < count; ++k) {
    const ELEMDESC& element = f->lprgelemdescParam[k];
    const USHORT param_flags = element.paramdesc.wParamFlags;
    types[k] = Resolve(interface_info_, element.tdesc);
    const ParamType& type = types[k];
    if (k == inputs) {  // the result
      frame.PassByReference(k, type.vt);
      continue;
    }
    HRESULT hr = S_OK;
    if (!IsOmitted(given[k])) {
      hr = ConvertArgument(*given[k], type, frame.temps[k]);
    } else if ((param_flags & PARAMFLAG_FHASDEFAULT) && element.paramdesc.pparamdescex != nullptr) {
      hr = ConvertArgument(element.paramdesc.pparamdescex->varDefaultValue, type, frame.temps[k]);
    } else if (param_flags & PARAMFLAG_FOPT) {
      frame.temps[k].vt = type.vt == VT_VARIANT ? VARTYPE{VT_ERROR} : type.vt;
      if (type.vt == VT_VARIANT) frame.temps[k].scode = DISP_E_PARAMNOTFOUND;
    } else {
      return DISP_E_BADPARAMCOUNT;
    }
    if (FAILED(hr)) {
      if (argument_error != nullptr) *argument_error = put && k == inputs - 1 ? 0 : total - 1 - static_cast<UINT>(k);
      return hr;
    }
    if (type.by_ref) {
      frame.PassByReference(k, type.vt);
    } else {
      frame.PassByValue(k, type.vt);
    }
  }

  VARIANT returned;
  VariantInit(&returned);
  HRESULT hr = DispCallFunc(target, f->oVft, f->callconv, VT_ERROR, static_cast<UINT>(count), frame.types.data(),
                            frame.pointers.data(), &returned);
  if (FAILED(hr)) return hr;
  hr = returned.scode;
  if (FAILED(hr)) {
    FillException(exception, hr);
    return DISP_E_EXCEPTION;
  }
  for (std::size_t k = 0; k < inputs; ++k) {
    if (types[k].by_ref && given[k] != nullptr && (given[k]->vt & VT_BYREF)) WriteBack(*given[k], frame.temps[k]);
  }
  if (has_retval) {
    VARIANT& value = frame.temps[inputs];
    if (types[inputs].vt != VT_VARIANT) value.vt = types[inputs].vt;
    if (result != nullptr) {
      VariantInit(result);
      *result = value;
      VariantInit(&value);
    }
  }
  return S_OK;
}

}  // namespace varnex::server
