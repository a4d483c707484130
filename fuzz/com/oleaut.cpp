// A native stand-in for the OLE Automation functions the server calls (BSTR, VARIANT, SAFEARRAY
// and VariantChangeType), so that the server's dispatch code runs under the sanitizers. It is
// strict on purpose: strings are length-prefixed heap blocks, arrays check their dimensions and
// bounds, and any use that would corrupt memory on the real platform stops the run.
#include "fuzz/com/oleaut.hpp"

#include <cfenv>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace varnex::fuzz::com {

[[noreturn]] void Misuse(const char* what) {
  std::fprintf(stderr, "FUZZ CHECK FAILED: OLE Automation misuse: %s\n", what);
  std::abort();
}

}  // namespace varnex::fuzz::com

using varnex::fuzz::com::Misuse;

// ---- BSTR: a 4-byte byte count, the characters, and two NUL bytes ----

extern "C" {

BSTR WINAPI SysAllocStringByteLen(LPCSTR text, UINT bytes) {
  auto* block = static_cast<char*>(std::malloc(sizeof(DWORD) + bytes + 2));
  if (block == nullptr) return nullptr;
  const DWORD length = bytes;
  std::memcpy(block, &length, sizeof length);
  if (text != nullptr) {
    std::memcpy(block + sizeof(DWORD), text, bytes);
  } else {
    std::memset(block + sizeof(DWORD), 0, bytes);
  }
  block[sizeof(DWORD) + bytes] = 0;
  block[sizeof(DWORD) + bytes + 1] = 0;
  return reinterpret_cast<BSTR>(block + sizeof(DWORD));
}

BSTR WINAPI SysAllocStringLen(const OLECHAR* text, UINT length) {
  return SysAllocStringByteLen(reinterpret_cast<LPCSTR>(text), length * sizeof(OLECHAR));
}

BSTR WINAPI SysAllocString(LPCOLESTR text) {
  if (text == nullptr) return nullptr;
  UINT length = 0;
  while (text[length] != 0) ++length;
  return SysAllocStringLen(text, length);
}

UINT WINAPI SysStringByteLen(BSTR text) {
  if (text == nullptr) return 0;
  DWORD length = 0;
  std::memcpy(&length, reinterpret_cast<char*>(text) - sizeof(DWORD), sizeof length);
  return length;
}

UINT WINAPI SysStringLen(BSTR text) { return SysStringByteLen(text) / sizeof(OLECHAR); }

void WINAPI SysFreeString(BSTR text) {
  if (text != nullptr) std::free(reinterpret_cast<char*>(text) - sizeof(DWORD));
}

}  // extern "C"

namespace {

BSTR CopyBstr(BSTR text) {
  if (text == nullptr) return nullptr;
  return SysAllocStringByteLen(reinterpret_cast<LPCSTR>(text), SysStringByteLen(text));
}

// ---- SAFEARRAY: the element type is kept in a header before the descriptor ----

struct ArrayBlock {
  VARTYPE vt;
  SAFEARRAY array;  // rgsabound holds cDims entries, the last dimension first
};

ArrayBlock* BlockOf(SAFEARRAY* array) {
  return reinterpret_cast<ArrayBlock*>(reinterpret_cast<char*>(array) - offsetof(ArrayBlock, array));
}

ULONG ElementSize(VARTYPE vt) {
  switch (vt) {
    case VT_I1: case VT_UI1: return 1;
    case VT_I2: case VT_UI2: case VT_BOOL: return 2;
    case VT_I4: case VT_UI4: case VT_INT: case VT_UINT: case VT_R4: case VT_ERROR: return 4;
    case VT_I8: case VT_UI8: case VT_R8: case VT_CY: case VT_DATE: return 8;
    case VT_BSTR: case VT_DISPATCH: case VT_UNKNOWN: return sizeof(void*);
    case VT_DECIMAL: return sizeof(DECIMAL);
    case VT_VARIANT: return sizeof(VARIANT);
    default: return 0;
  }
}

std::size_t ElementCount(const SAFEARRAY* array) {
  std::size_t count = 1;
  for (USHORT d = 0; d < array->cDims; ++d) count *= array->rgsabound[d].cElements;
  return count;
}

void CheckArray(SAFEARRAY* array) {
  if (array == nullptr) Misuse("null SAFEARRAY");
}

// The flat position of an element, or -1 when an index is out of bounds. indices[0] is the first
// dimension (the last bound in rgsabound).
long long Position(SAFEARRAY* array, const LONG* indices) {
  long long position = 0;
  for (USHORT d = 0; d < array->cDims; ++d) {
    const SAFEARRAYBOUND& bound = array->rgsabound[array->cDims - 1 - d];
    const long long offset = static_cast<long long>(indices[d]) - bound.lLbound;
    if (offset < 0 || offset >= bound.cElements) return -1;
    position = position * bound.cElements + offset;
  }
  return position;
}

void ClearElement(VARTYPE vt, void* element) {
  switch (vt) {
    case VT_BSTR: SysFreeString(*static_cast<BSTR*>(element)); break;
    case VT_DISPATCH: case VT_UNKNOWN:
      if (auto* object = *static_cast<IUnknown**>(element)) object->Release();
      break;
    case VT_VARIANT: VariantClear(static_cast<VARIANT*>(element)); break;
    default: break;
  }
}

HRESULT CopyElement(VARTYPE vt, const void* from, void* to) {
  switch (vt) {
    case VT_BSTR: {
      BSTR source = *static_cast<const BSTR*>(from);
      BSTR copy = CopyBstr(source);
      if (source != nullptr && copy == nullptr) return E_OUTOFMEMORY;
      *static_cast<BSTR*>(to) = copy;
      return S_OK;
    }
    case VT_DISPATCH: case VT_UNKNOWN: {
      auto* object = *static_cast<IUnknown* const*>(from);
      if (object != nullptr) object->AddRef();
      *static_cast<IUnknown**>(to) = object;
      return S_OK;
    }
    case VT_VARIANT:
      VariantInit(static_cast<VARIANT*>(to));
      return VariantCopy(static_cast<VARIANT*>(to), static_cast<const VARIANT*>(from));
    default:
      std::memcpy(to, from, ElementSize(vt));
      return S_OK;
  }
}

}  // namespace

extern "C" {

SAFEARRAY* WINAPI SafeArrayCreate(VARTYPE vt, UINT dims, SAFEARRAYBOUND* bounds) {
  const ULONG size = ElementSize(vt);
  if (size == 0 || dims == 0 || dims > 60 || bounds == nullptr) return nullptr;
  const std::size_t header = offsetof(ArrayBlock, array) + offsetof(SAFEARRAY, rgsabound) + dims * sizeof(SAFEARRAYBOUND);
  auto* block = static_cast<ArrayBlock*>(std::calloc(1, header));
  if (block == nullptr) return nullptr;
  block->vt = vt;
  SAFEARRAY* array = &block->array;
  array->cDims = static_cast<USHORT>(dims);
  array->cbElements = size;
  array->fFeatures = FADF_HAVEVARTYPE | (vt == VT_BSTR       ? FADF_BSTR
                                         : vt == VT_VARIANT  ? FADF_VARIANT
                                         : vt == VT_DISPATCH ? FADF_DISPATCH
                                         : vt == VT_UNKNOWN  ? FADF_UNKNOWN
                                                             : 0);
  // rgsabound keeps the dimensions in reverse order of the caller's bounds.
  for (UINT d = 0; d < dims; ++d) array->rgsabound[dims - 1 - d] = bounds[d];
  const std::size_t count = ElementCount(array);
  if (count > (std::size_t{1} << 24)) {
    std::free(block);
    return nullptr;
  }
  array->pvData = std::calloc(count == 0 ? 1 : count, size);
  if (array->pvData == nullptr) {
    std::free(block);
    return nullptr;
  }
  return array;
}

HRESULT WINAPI SafeArrayDestroy(SAFEARRAY* array) {
  if (array == nullptr) return S_OK;
  if (array->cLocks != 0) return DISP_E_ARRAYISLOCKED;
  ArrayBlock* block = BlockOf(array);
  auto* data = static_cast<char*>(array->pvData);
  const std::size_t count = ElementCount(array);
  for (std::size_t i = 0; i < count; ++i) ClearElement(block->vt, data + i * array->cbElements);
  std::free(array->pvData);
  std::free(block);
  return S_OK;
}

UINT WINAPI SafeArrayGetDim(SAFEARRAY* array) {
  CheckArray(array);
  return array->cDims;
}

HRESULT WINAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dim, LONG* lower) {
  CheckArray(array);
  if (lower == nullptr) return E_INVALIDARG;
  if (dim == 0 || dim > array->cDims) return DISP_E_BADINDEX;
  *lower = array->rgsabound[array->cDims - dim].lLbound;
  return S_OK;
}

HRESULT WINAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dim, LONG* upper) {
  CheckArray(array);
  if (upper == nullptr) return E_INVALIDARG;
  if (dim == 0 || dim > array->cDims) return DISP_E_BADINDEX;
  const SAFEARRAYBOUND& bound = array->rgsabound[array->cDims - dim];
  *upper = static_cast<LONG>(static_cast<long long>(bound.lLbound) + bound.cElements - 1);
  return S_OK;
}

HRESULT WINAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* vt) {
  if (array == nullptr || vt == nullptr) return E_INVALIDARG;
  *vt = BlockOf(array)->vt;
  return S_OK;
}

HRESULT WINAPI SafeArrayGetElement(SAFEARRAY* array, LONG* indices, void* out) {
  if (array == nullptr || indices == nullptr || out == nullptr) return E_INVALIDARG;
  const long long position = Position(array, indices);
  if (position < 0) return DISP_E_BADINDEX;
  return CopyElement(BlockOf(array)->vt, static_cast<char*>(array->pvData) + position * array->cbElements, out);
}

HRESULT WINAPI SafeArrayPutElement(SAFEARRAY* array, LONG* indices, void* value) {
  if (array == nullptr || indices == nullptr) return E_INVALIDARG;
  const VARTYPE vt = BlockOf(array)->vt;
  if (value == nullptr && vt != VT_BSTR && vt != VT_DISPATCH && vt != VT_UNKNOWN) return E_INVALIDARG;
  const long long position = Position(array, indices);
  if (position < 0) return DISP_E_BADINDEX;
  void* element = static_cast<char*>(array->pvData) + position * array->cbElements;
  // BSTR and interface elements are passed as the value itself, not its address.
  if (vt == VT_BSTR || vt == VT_DISPATCH || vt == VT_UNKNOWN) {
    void* pointer = value;
    ClearElement(vt, element);
    return CopyElement(vt, &pointer, element);
  }
  ClearElement(vt, element);
  return CopyElement(vt, value, element);
}

HRESULT WINAPI SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = nullptr;
  if (array == nullptr) return S_OK;
  const VARTYPE vt = BlockOf(array)->vt;
  SAFEARRAYBOUND bounds[64];
  for (USHORT d = 0; d < array->cDims; ++d) bounds[d] = array->rgsabound[array->cDims - 1 - d];
  SAFEARRAY* copy = SafeArrayCreate(vt, array->cDims, bounds);
  if (copy == nullptr) return E_OUTOFMEMORY;
  const std::size_t count = ElementCount(array);
  for (std::size_t i = 0; i < count; ++i) {
    const HRESULT hr = CopyElement(vt, static_cast<char*>(array->pvData) + i * array->cbElements,
                                   static_cast<char*>(copy->pvData) + i * copy->cbElements);
    if (FAILED(hr)) {
      SafeArrayDestroy(copy);
      return hr;
    }
  }
  *out = copy;
  return S_OK;
}

}  // extern "C"

// ---- VARIANT ----

namespace {

bool IsBasic(VARTYPE vt) {
  switch (vt) {
    case VT_EMPTY: case VT_NULL: case VT_I1: case VT_UI1: case VT_I2: case VT_UI2: case VT_I4: case VT_UI4:
    case VT_INT: case VT_UINT: case VT_I8: case VT_UI8: case VT_R4: case VT_R8: case VT_CY: case VT_DATE:
    case VT_BOOL: case VT_ERROR: case VT_DECIMAL: case VT_BSTR: case VT_DISPATCH: case VT_UNKNOWN:
      return true;
    default: return false;
  }
}

// A type a VARIANT may hold: a basic one, a reference to one (or to a VARIANT), or an array.
bool IsValid(VARTYPE vt) {
  const VARTYPE base = vt & VT_TYPEMASK;
  if (vt & VT_ARRAY) {
    return (vt & ~(VT_ARRAY | VT_BYREF | VT_TYPEMASK)) == 0 && base != VT_EMPTY && base != VT_NULL &&
           (IsBasic(base) || base == VT_VARIANT);
  }
  if (vt & VT_BYREF) {
    return (vt & ~(VT_BYREF | VT_TYPEMASK)) == 0 && base != VT_EMPTY && base != VT_NULL &&
           (IsBasic(base) || base == VT_VARIANT);
  }
  return IsBasic(vt);
}

}  // namespace

extern "C" {

void WINAPI VariantInit(VARIANTARG* v) {
  std::memset(v, 0, sizeof *v);
  v->vt = VT_EMPTY;
}

HRESULT WINAPI VariantClear(VARIANTARG* v) {
  if (v == nullptr) Misuse("VariantClear of null");
  if (!IsValid(v->vt)) return DISP_E_BADVARTYPE;
  if (!(v->vt & VT_BYREF)) {
    if (v->vt & VT_ARRAY) {
      const HRESULT hr = SafeArrayDestroy(v->parray);
      if (FAILED(hr)) return hr;
    } else if (v->vt == VT_BSTR) {
      SysFreeString(v->bstrVal);
    } else if (v->vt == VT_DISPATCH || v->vt == VT_UNKNOWN) {
      if (v->punkVal != nullptr) v->punkVal->Release();
    }
  }
  VariantInit(v);
  return S_OK;
}

HRESULT WINAPI VariantCopy(VARIANTARG* dest, const VARIANTARG* source) {
  if (dest == nullptr || source == nullptr) Misuse("VariantCopy of null");
  if (!IsValid(source->vt)) return DISP_E_BADVARTYPE;
  if (dest == source) return S_OK;
  HRESULT hr = VariantClear(dest);
  if (FAILED(hr)) return hr;
  VARIANT copy = *source;
  if (!(source->vt & VT_BYREF)) {
    if (source->vt & VT_ARRAY) {
      hr = SafeArrayCopy(source->parray, &copy.parray);
      if (FAILED(hr)) return hr;
    } else if (source->vt == VT_BSTR) {
      copy.bstrVal = CopyBstr(source->bstrVal);
      if (source->bstrVal != nullptr && copy.bstrVal == nullptr) return E_OUTOFMEMORY;
    } else if ((source->vt == VT_DISPATCH || source->vt == VT_UNKNOWN) && source->punkVal != nullptr) {
      source->punkVal->AddRef();
    }
  }
  *dest = copy;
  return S_OK;
}

HRESULT WINAPI VariantCopyInd(VARIANT* dest, const VARIANTARG* source) {
  if (dest == nullptr || source == nullptr) Misuse("VariantCopyInd of null");
  if (!IsValid(source->vt)) return DISP_E_BADVARTYPE;
  if (!(source->vt & VT_BYREF)) return VariantCopy(dest, source);
  if (source->byref == nullptr) Misuse("a by-reference VARIANT with a null pointer dereferenced");
  VARIANT value;
  VariantInit(&value);
  const VARTYPE vt = source->vt & ~VT_BYREF;
  HRESULT hr = S_OK;
  if (vt == VT_VARIANT) {
    // A reference to a VARIANT that is itself a reference to a VARIANT is not allowed.
    if (source->pvarVal->vt == (VT_BYREF | VT_VARIANT)) return E_INVALIDARG;
    hr = VariantCopy(&value, source->pvarVal);
  } else if (vt & VT_ARRAY) {
    value.vt = vt;
    hr = SafeArrayCopy(*source->pparray, &value.parray);
  } else if (vt == VT_DECIMAL) {
    value.decVal = *source->pdecVal;
    value.vt = VT_DECIMAL;
  } else {
    VARIANT direct;
    VariantInit(&direct);
    direct.vt = vt;
    std::memcpy(&direct.lVal, source->byref, ElementSize(vt));
    hr = VariantCopy(&value, &direct);
  }
  if (FAILED(hr)) return hr;
  if (dest != source) {
    hr = VariantClear(dest);
    if (FAILED(hr)) {
      VariantClear(&value);
      return hr;
    }
  }
  *dest = value;
  return S_OK;
}

}  // extern "C"
