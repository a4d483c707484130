// The server's type information, read from its own IDL (server/varnex.idl, built into the target
// as text), and DispCallFunc, which calls a member through an object's vtable. Together they let
// the server's Dispatcher run natively over the same declarations as in varnex.dll: member ids,
// invoke kinds, parameter types and flags, optional parameters and their defaults.
//
// Each dual interface is one TKIND_DISPATCH type (FDUAL) whose functions carry their vtable
// offsets; enumerations and interfaces named as parameter types are reached through
// GetRefTypeInfo. Every FUNCDESC and TYPEATTR handed out is counted until it is released.
#include <cctype>
#include <cstdint>
#include <cstring>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/com/oleaut.hpp"

extern const char kServerIdl[];  // written by the build from server/varnex.idl

namespace varnex::fuzz::com {
namespace {

long outstanding_descriptions = 0;

struct Param {
  std::string name;
  ELEMDESC element{};
  PARAMDESCEX defaults{};
};

struct Function {
  std::string name;
  FUNCDESC desc{};
  std::vector<ELEMDESC> elements;
  std::vector<std::string> param_names;
  std::deque<PARAMDESCEX> defaults;
};

class TypeInfo;

// Everything the IDL declares, alive for the whole run.
struct Library {
  std::vector<std::unique_ptr<TypeInfo>> types;  // an HREFTYPE is an index here
  std::map<std::string, HREFTYPE> by_name;
  std::map<std::string, LONG> constants;
  std::deque<TYPEDESC> descs;
};

Library& TheLibrary();

bool SameName(const std::string& a, const wchar_t* b) {
  std::size_t i = 0;
  for (; i < a.size(); ++i) {
    if (b[i] == 0 || b[i] > 127 || std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<int>(b[i]))) {
      return false;
    }
  }
  return b[i] == 0;
}

class TypeInfo final : public ITypeInfo {
 public:
  TypeInfo(TYPEKIND kind, GUID guid) {
    attr_.typekind = kind;
    attr_.guid = guid;
    attr_.cbSizeVft = 7 * sizeof(void*);
    if (kind == TKIND_DISPATCH) attr_.wTypeFlags = TYPEFLAG_FDUAL | TYPEFLAG_FDISPATCHABLE;
  }

  std::deque<Function> functions;
  TYPEATTR attr_{};

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_ITypeInfo)) {
      *object = static_cast<ITypeInfo*>(this);
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR** out) override {
    if (out == nullptr) return E_INVALIDARG;
    attr_.cFuncs = static_cast<WORD>(functions.size());
    *out = new TYPEATTR(attr_);
    ++outstanding_descriptions;
    return S_OK;
  }
  void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR* attr) override {
    if (attr == nullptr) Misuse("ReleaseTypeAttr of null");
    delete attr;
    --outstanding_descriptions;
  }
  HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT index, FUNCDESC** out) override {
    if (out == nullptr) return E_INVALIDARG;
    if (index >= functions.size()) return TYPE_E_ELEMENTNOTFOUND;
    *out = new FUNCDESC(functions[index].desc);
    ++outstanding_descriptions;
    return S_OK;
  }
  void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC* desc) override {
    if (desc == nullptr) Misuse("ReleaseFuncDesc of null");
    delete desc;
    --outstanding_descriptions;
  }
  HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT, HREFTYPE*) override { return TYPE_E_ELEMENTNOTFOUND; }
  HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE type, ITypeInfo** out) override {
    if (out == nullptr) return E_INVALIDARG;
    Library& library = TheLibrary();
    if (type >= library.types.size()) return E_INVALIDARG;
    *out = library.types[type].get();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) override {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    for (const Function& function : functions) {
      if (!SameName(function.name, names[0])) continue;
      ids[0] = function.desc.memid;
      HRESULT hr = S_OK;
      for (UINT n = 1; n < count; ++n) {
        ids[n] = DISPID_UNKNOWN;
        for (std::size_t p = 0; p < function.param_names.size(); ++p) {
          if (SameName(function.param_names[p], names[n])) ids[n] = static_cast<MEMBERID>(p);
        }
        if (ids[n] == DISPID_UNKNOWN) hr = DISP_E_UNKNOWNNAME;
      }
      return hr;
    }
    for (UINT n = 0; n < count; ++n) ids[n] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }

  HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNames(MEMBERID, BSTR*, UINT, UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT, INT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID, BSTR*, BSTR*, DWORD*, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, PVOID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib**, UINT*) override { return E_NOTIMPL; }
  void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override {}
};

class TypeLib final : public ITypeLib {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_ITypeLib)) {
      *object = static_cast<ITypeLib*>(this);
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  UINT STDMETHODCALLTYPE GetTypeInfoCount() override { return static_cast<UINT>(TheLibrary().types.size()); }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, ITypeInfo** out) override {
    return TheLibrary().types[0]->GetRefTypeInfo(index, out);
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoType(UINT, TYPEKIND*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** out) override {
    if (out == nullptr) return E_INVALIDARG;
    *out = nullptr;
    for (auto& type : TheLibrary().types) {
      if (IsEqualGUID(type->attr_.guid, guid)) {
        *out = type.get();
        return S_OK;
      }
    }
    return TYPE_E_ELEMENTNOTFOUND;
  }
  HRESULT STDMETHODCALLTYPE GetLibAttr(TLIBATTR**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDocumentation(INT, BSTR*, BSTR*, DWORD*, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE IsName(LPOLESTR, ULONG, BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindName(LPOLESTR, ULONG, ITypeInfo**, MEMBERID*, USHORT*) override { return E_NOTIMPL; }
  void STDMETHODCALLTYPE ReleaseTLibAttr(TLIBATTR*) override {}
};

// ---- reading the IDL ----

std::string WithoutComments(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 2, "//") == 0) {
      while (i < text.size() && text[i] != '\n') ++i;
    }
    if (i < text.size()) out += text[i];
  }
  return out;
}

std::string Trim(const std::string& text) {
  std::size_t begin = text.find_first_not_of(" \t\r\n");
  if (begin == std::string::npos) return "";
  return text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

GUID ParseGuid(const std::string& text) {
  GUID guid{};
  unsigned parts[11] = {};
  std::sscanf(text.c_str(), "%8x-%4x-%4x-%2x%2x-%2x%2x%2x%2x%2x%2x", &parts[0], &parts[1], &parts[2], &parts[3],
              &parts[4], &parts[5], &parts[6], &parts[7], &parts[8], &parts[9], &parts[10]);
  guid.Data1 = parts[0];
  guid.Data2 = static_cast<WORD>(parts[1]);
  guid.Data3 = static_cast<WORD>(parts[2]);
  for (int i = 0; i < 8; ++i) guid.Data4[i] = static_cast<BYTE>(parts[3 + i]);
  return guid;
}

// The text between the bracket at open and its partner.
std::string Enclosed(const std::string& text, std::size_t open, char left, char right, std::size_t* end = nullptr) {
  int depth = 0;
  for (std::size_t i = open; i < text.size(); ++i) {
    if (text[i] == left) ++depth;
    if (text[i] == right && --depth == 0) {
      if (end != nullptr) *end = i;
      return text.substr(open + 1, i - open - 1);
    }
  }
  Misuse("unbalanced IDL");
}

std::vector<std::string> SplitTopLevel(const std::string& text, char separator) {
  std::vector<std::string> parts;
  int depth = 0;
  std::string current;
  for (char c : text) {
    if (c == '(' || c == '[') ++depth;
    if (c == ')' || c == ']') --depth;
    if (c == separator && depth == 0) {
      parts.push_back(Trim(current));
      current.clear();
    } else {
      current += c;
    }
  }
  if (!Trim(current).empty()) parts.push_back(Trim(current));
  return parts;
}

// The value after "uuid(" in an attribute list.
std::string Attribute(const std::string& attributes, const std::string& name) {
  for (const std::string& item : SplitTopLevel(attributes, ',')) {
    if (item == name) return "present";
    if (item.rfind(name + "(", 0) == 0) return item.substr(name.size() + 1, item.size() - name.size() - 2);
  }
  return "";
}

TYPEDESC* NewDesc(Library& library, VARTYPE vt) {
  library.descs.push_back({});
  library.descs.back().vt = vt;
  return &library.descs.back();
}

TYPEDESC TypeOf(Library& library, std::string type) {
  type = Trim(type);
  int stars = 0;
  while (!type.empty() && type.back() == '*') {
    ++stars;
    type = Trim(type.substr(0, type.size() - 1));
  }
  TYPEDESC base{};
  if (type.rfind("SAFEARRAY(", 0) == 0) {
    base.vt = VT_SAFEARRAY;
    base.lptdesc = NewDesc(library, VT_EMPTY);
    *base.lptdesc = TypeOf(library, type.substr(10, type.size() - 11));
  } else if (type == "long") {
    base.vt = VT_I4;
  } else if (type == "BSTR") {
    base.vt = VT_BSTR;
  } else if (type == "VARIANT_BOOL") {
    base.vt = VT_BOOL;
  } else if (type == "VARIANT") {
    base.vt = VT_VARIANT;
  } else if (type == "IDispatch" || type == "IUnknown") {
    base.vt = type == "IDispatch" ? VT_DISPATCH : VT_UNKNOWN;
    --stars;  // an interface type already is a pointer
  } else if (auto found = library.by_name.find(type); found != library.by_name.end()) {
    base.vt = VT_USERDEFINED;
    base.hreftype = found->second;
  } else {
    Misuse(("an IDL type the fuzz target does not know: " + type).c_str());
  }
  for (; stars > 0; --stars) {
    TYPEDESC* inner = NewDesc(library, VT_EMPTY);
    *inner = base;
    base = {};
    base.vt = VT_PTR;
    base.lptdesc = inner;
  }
  return base;
}

VARIANT DefaultOf(Library& library, const std::string& literal) {
  VARIANT value;
  VariantInit(&value);
  if (literal.size() >= 2 && literal.front() == '"') {
    const std::u16string text(literal.begin() + 1, literal.end() - 1);
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()), static_cast<UINT>(text.size()));
  } else {
    value.vt = VT_I4;
    auto constant = library.constants.find(literal);
    value.lVal = constant != library.constants.end() ? constant->second : std::stol(literal);
  }
  return value;
}

void ReadEnums(Library& library, const std::string& idl) {
  for (std::size_t at = idl.find(" enum "); at != std::string::npos; at = idl.find(" enum ", at + 1)) {
    const std::size_t open = idl.find('{', at);
    const std::string name = Trim(idl.substr(at + 6, open - at - 6));
    for (const std::string& item : SplitTopLevel(Enclosed(idl, open, '{', '}'), ',')) {
      const std::size_t equals = item.find('=');
      library.constants[Trim(item.substr(0, equals))] = std::stol(item.substr(equals + 1));
    }
    library.by_name[name] = static_cast<HREFTYPE>(library.types.size());
    library.types.push_back(std::make_unique<TypeInfo>(TKIND_ENUM, GUID{}));
  }
}

void ReadMethod(Library& library, TypeInfo& type, const std::string& text, UINT slot) {
  const std::string attributes = Enclosed(text, text.find('['), '[', ']');
  const std::size_t open = text.find('(', text.find("HRESULT"));
  Function function;
  function.name = Trim(text.substr(text.find("HRESULT") + 7, open - text.find("HRESULT") - 7));
  const std::vector<std::string> params = SplitTopLevel(Enclosed(text, open, '(', ')'), ',');
  function.elements.resize(params.size());
  for (std::size_t p = 0; p < params.size(); ++p) {
    std::size_t close = 0;
    const std::string flags = Enclosed(params[p], params[p].find('['), '[', ']', &close);
    std::string declaration = Trim(params[p].substr(close + 1));
    const std::size_t name_at = declaration.find_last_of(" *");
    function.param_names.push_back(declaration.substr(name_at + 1));
    ELEMDESC& element = function.elements[p];
    element.tdesc = TypeOf(library, declaration.substr(0, name_at + 1));
    USHORT& wflags = element.paramdesc.wParamFlags;
    if (!Attribute(flags, "in").empty()) wflags |= PARAMFLAG_FIN;
    if (!Attribute(flags, "out").empty()) wflags |= PARAMFLAG_FOUT;
    if (!Attribute(flags, "retval").empty()) wflags |= PARAMFLAG_FRETVAL;
    if (!Attribute(flags, "optional").empty()) wflags |= PARAMFLAG_FOPT;
    if (const std::string literal = Attribute(flags, "defaultvalue"); !literal.empty()) {
      wflags |= PARAMFLAG_FHASDEFAULT;
      function.defaults.push_back({sizeof(PARAMDESCEX), DefaultOf(library, literal)});
      element.paramdesc.pparamdescex = &function.defaults.back();
    }
  }
  FUNCDESC& desc = function.desc;
  desc.memid = std::stol(Attribute(attributes, "id"));
  desc.funckind = FUNC_PUREVIRTUAL;
  desc.invkind = !Attribute(attributes, "propget").empty()      ? INVOKE_PROPERTYGET
                 : !Attribute(attributes, "propputref").empty() ? INVOKE_PROPERTYPUTREF
                 : !Attribute(attributes, "propput").empty()    ? INVOKE_PROPERTYPUT
                                                                : INVOKE_FUNC;
  desc.callconv = CC_STDCALL;
  desc.cParams = static_cast<SHORT>(params.size());
  desc.oVft = static_cast<SHORT>(slot * sizeof(void*));
  desc.elemdescFunc.tdesc.vt = VT_HRESULT;
  type.functions.push_back(std::move(function));
  Function& kept = type.functions.back();
  kept.desc.lprgelemdescParam = kept.elements.empty() ? nullptr : kept.elements.data();
}

void ReadInterfaces(Library& library, const std::string& idl) {
  std::map<std::string, UINT> vtable_ends;  // slots used by each interface, its bases' included
  vtable_ends["IDispatch"] = 7;
  for (std::size_t at = idl.find("interface "); at != std::string::npos; at = idl.find("interface ", at + 1)) {
    const std::size_t open = idl.find_first_of("{;", at);
    const std::string head = idl.substr(at + 10, open - at - 10);
    if (idl[open] != '{' || head.find(':') == std::string::npos) continue;  // a forward declaration
    const std::string name = Trim(head.substr(0, head.find(':')));
    const std::string base = Trim(head.substr(head.find(':') + 1));
    const std::size_t attributes_at = idl.rfind('[', at);
    const std::string attributes = Enclosed(idl, attributes_at, '[', ']');
    auto type = std::make_unique<TypeInfo>(TKIND_DISPATCH, ParseGuid(Attribute(attributes, "uuid")));
    library.by_name[name] = static_cast<HREFTYPE>(library.types.size());
    UINT slot = vtable_ends.at(base);
    for (const std::string& method : SplitTopLevel(Enclosed(idl, open, '{', '}'), ';')) {
      ReadMethod(library, *type, method, slot++);
    }
    vtable_ends[name] = slot;
    library.types.push_back(std::move(type));
  }
}

Library& TheLibrary() {
  static Library* library = [] {
    auto* made = new Library;
    const std::string idl = WithoutComments(kServerIdl);
    ReadEnums(*made, idl);
    ReadInterfaces(*made, idl.substr(idl.find("library Varnex")));
    return made;
  }();
  return *library;
}

// ---- calling through a vtable ----

using Word = std::uint64_t;

template <std::size_t... I>
HRESULT CallSlot(void* function, void* object, const Word* words, std::index_sequence<I...>) {
  using Slot = HRESULT(__attribute__((ms_abi)) *)(void*, decltype((void)I, Word{})...);
  return reinterpret_cast<Slot>(function)(object, words[I]...);
}

template <std::size_t... N>
HRESULT CallWithCount(void* function, void* object, const Word* words, std::size_t count, std::index_sequence<N...>) {
  HRESULT hr = E_INVALIDARG;
  (void)((count == N ? (hr = CallSlot(function, object, words, std::make_index_sequence<N>{}), true) : false) || ...);
  return hr;
}

Word WordOf(VARTYPE vt, VARIANTARG* argument) {
  if (argument == nullptr) Misuse("DispCallFunc with a null argument");
  if (vt != argument->vt && !(vt == VT_VARIANT)) Misuse("DispCallFunc argument type differs from its VARIANT");
  if (vt & VT_BYREF) return reinterpret_cast<Word>(argument->byref);
  switch (vt) {
    case VT_VARIANT: return reinterpret_cast<Word>(argument);  // passed by reference to a copy
    case VT_I2: case VT_BOOL: return static_cast<Word>(static_cast<std::uint16_t>(argument->iVal));
    case VT_I4: case VT_UI4: case VT_INT: case VT_UINT: case VT_ERROR:
      return static_cast<Word>(static_cast<std::uint32_t>(argument->lVal));
    case VT_BSTR: case VT_DISPATCH: case VT_UNKNOWN: return reinterpret_cast<Word>(argument->byref);
    default:
      if (vt & VT_ARRAY) return reinterpret_cast<Word>(argument->parray);
      Misuse("DispCallFunc with a by-value type the server's interfaces never take");
  }
}

}  // namespace

ITypeLib* ServerTypeLibrary() {
  static TypeLib library;
  TheLibrary();
  return &library;
}

long OutstandingDescriptions() { return outstanding_descriptions; }

}  // namespace varnex::fuzz::com

using namespace varnex::fuzz::com;

extern "C" HRESULT WINAPI LoadTypeLibEx(LPCOLESTR, REGKIND, ITypeLib** out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = ServerTypeLibrary();
  return S_OK;
}

extern "C" HRESULT WINAPI DispCallFunc(void* object, ULONG_PTR offset, CALLCONV callconv, VARTYPE returned,
                                       UINT count, VARTYPE* types, VARIANTARG** arguments, VARIANT* result) {
  if (object == nullptr || result == nullptr || callconv != CC_STDCALL || returned != VT_ERROR) {
    Misuse("DispCallFunc called as the server never does");
  }
  if (count > 12) return E_INVALIDARG;
  Word words[12] = {};
  for (UINT k = 0; k < count; ++k) words[k] = WordOf(types[k], arguments[k]);
  void** vtable = *static_cast<void***>(object);
  const HRESULT hr = CallWithCount(vtable[offset / sizeof(void*)], object, words, count,
                                   std::make_index_sequence<13>{});
  VariantInit(result);
  result->vt = VT_ERROR;
  result->scode = hr;
  return S_OK;
}
