// A compiled client of varnex.dll: loads the DLL itself, calls the objects through their vtables,
// and checks what scripts cannot see: the DLL may be unloaded exactly when every object and
// lock is released, one wrapper per core object, the error object behind a failed call, and
// BindToGrid driving a grid (a fake whose type information names it) by member name.
// Usage: client.exe PATH-TO-varnex.dll; prints "N passed, N failed" last and exits 1 on failure.
#include <windows.h>

#include <cstdio>
#include <string>

#include "varnex.h"

namespace {

int passed = 0;
int failed = 0;

void Check(const char* name, bool ok) {
  if (ok) {
    ++passed;
  } else {
    ++failed;
    std::printf("FAIL %s\n", name);
  }
}

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
using CanUnloadNow = HRESULT(STDAPICALLTYPE*)();

struct Server {
  GetClassObject get_class_object;
  CanUnloadNow can_unload_now;

  template <typename Interface>
  Interface* Create(REFCLSID clsid) {
    IClassFactory* factory = nullptr;
    Interface* object = nullptr;
    if (SUCCEEDED(get_class_object(clsid, IID_IClassFactory, reinterpret_cast<void**>(&factory)))) {
      factory->CreateInstance(nullptr, __uuidof(Interface), reinterpret_cast<void**>(&object));
      factory->Release();
    }
    return object;
  }
};

void TransportThroughItsVtable(Server& server) {
  _Transport* transport = server.Create<_Transport>(CLSID_Transport);
  Check("Transport created", transport != nullptr);
  if (transport == nullptr) return;
  Check("an object alive: the DLL stays", server.can_unload_now() == S_FALSE);

  BSTR name = SysAllocString(L"Site");
  VARIANT handle;
  VariantInit(&handle);
  Check("AddComponent", transport->AddComponent(0, name, csNew, &handle) == S_OK);
  Check("the handle is a Long", handle.vt == VT_I4 && handle.lVal == 1);

  VARIANT_BOOL ignore = 1;
  LONG count = -1;
  Check("CountCompChildren with 1", transport->CountCompChildren(0, &ignore, &count) == S_OK && count == 1);

  VARIANT ignored;
  VariantInit(&ignored);
  const HRESULT hr = transport->AddComponent(99, name, csNormal, &ignored);
  Check("an unknown parent fails with 0x800A01A8", hr == static_cast<HRESULT>(0x800A01A8));
  IErrorInfo* info = nullptr;
  BSTR description = nullptr;
  if (GetErrorInfo(0, &info) == S_OK && info != nullptr) {
    info->GetDescription(&description);
    info->Release();
  }
  Check("the error object describes it",
        description != nullptr && std::wstring(description) == L"AddComponent: Invalid Handle");
  SysFreeString(description);

  ISupportErrorInfo* support = nullptr;
  Check("ISupportErrorInfo", transport->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(&support)) == S_OK &&
                                 support->InterfaceSupportsErrorInfo(__uuidof(_Transport)) == S_OK);
  if (support != nullptr) support->Release();

  SysFreeString(name);
  transport->Release();
}

void RowsKeepTheirIdentity(Server& server) {
  _DataCollection* collection = server.Create<_DataCollection>(CLSID_DataCollection);
  Check("DataCollection created", collection != nullptr);
  if (collection == nullptr) return;
  BSTR text = SysAllocString(
      L"<R><COLLECTION><L><COMPONENT><I><PROPERTIES><A>1</A></PROPERTIES></I></COMPONENT></L></COLLECTION></R>");
  Check("Data", collection->put_Data(&text) == S_OK);
  SysFreeString(text);

  VARIANT first;
  VariantInit(&first);
  first.vt = VT_I4;
  first.lVal = 1;
  _DataRow* row1 = nullptr;
  _DataRow* row2 = nullptr;
  collection->get_Item(first, &row1);
  collection->get_Item(first, &row2);
  IUnknown* unknown1 = nullptr;
  IUnknown* unknown2 = nullptr;
  if (row1 != nullptr) row1->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown1));
  if (row2 != nullptr) row2->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&unknown2));
  Check("the same row gives the same IUnknown", unknown1 != nullptr && unknown1 == unknown2);

  IUnknown* enumerator = nullptr;
  IEnumVARIANT* items = nullptr;
  collection->get_NewEnum(&enumerator);
  if (enumerator != nullptr) enumerator->QueryInterface(IID_IEnumVARIANT, reinterpret_cast<void**>(&items));
  VARIANT item;
  VariantInit(&item);
  ULONG fetched = 0;
  Check("NewEnum is an IEnumVARIANT", items != nullptr && items->Next(1, &item, &fetched) == S_OK && fetched == 1);
  Check("the enumerator hands out the row", item.vt == VT_DISPATCH && item.pdispVal == static_cast<IDispatch*>(row1));
  Check("the enumerator ends", items != nullptr && items->Next(1, &item, &fetched) == S_FALSE);
  VariantClear(&item);

  for (IUnknown* object : {static_cast<IUnknown*>(items), enumerator, unknown1, unknown2,
                           static_cast<IUnknown*>(row1), static_cast<IUnknown*>(row2)}) {
    if (object != nullptr) object->Release();
  }
  collection->Release();
}

// A grid control reached late-bound, as BindToGrid reaches it: its type information names it, it
// answers the members a grid has, forgets its layout when it is given a data source (as a real
// grid rebuilds its columns), and counts any call it does not expect.
class FakeGrid final : public IDispatch, public ITypeInfo {
 public:
  explicit FakeGrid(const wchar_t* type_name) : type_name_(type_name) {}

  long widths[3] = {100, 200, 300};
  std::wstring captions[3] = {L"Site", L"Day", L"Passed"};
  long types[3] = {8, 8, 11};
  IDispatch* data_source = nullptr;
  int layout_calls = 0;
  int unexpected = 0;

  ~FakeGrid() {
    if (data_source != nullptr) data_source->Release();
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch)) {
      *object = static_cast<IDispatch*>(this);
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }  // lives on the test's stack
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = static_cast<ITypeInfo*>(this);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override {
    static const wchar_t* const members[] = {L"cols", L"colwidth", L"rows", L"Cell", L"ColDataType", L"DataSource"};
    for (DISPID k = 0; k < 6; ++k) {
      if (_wcsicmp(names[0], members[k]) == 0) {
        *id = k + 1;
        return S_OK;
      }
    }
    ++unexpected;
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
    const UINT args = params->cArgs - (put ? 1 : 0);
    // Arguments arrive last first; a put's value comes first of all.
    auto arg = [&](UINT k) { return params->rgvarg[params->cArgs - 1 - k].lVal; };
    const VARIANT* value = put ? &params->rgvarg[0] : nullptr;
    if (result != nullptr) VariantInit(result);
    if (id != 6) ++layout_calls;
    if (id == 1 && !put && args == 0) return Answer(result, 3);
    if (id == 3 && !put && args == 0) return Answer(result, 1);
    if (id == 2 && args == 1 && arg(0) >= 0 && arg(0) < 3) {
      if (!put) return Answer(result, widths[arg(0)]);
      widths[arg(0)] = value->lVal;
      return S_OK;
    }
    if (id == 5 && args == 1 && arg(0) >= 0 && arg(0) < 3) {
      if (!put) return Answer(result, types[arg(0)]);
      types[arg(0)] = value->lVal;
      return S_OK;
    }
    if (id == 4 && args == 3 && arg(0) == 0 && arg(1) == 0 && arg(2) >= 0 && arg(2) < 3) {
      if (put) {
        captions[arg(2)] = value->bstrVal;
        return S_OK;
      }
      result->vt = VT_BSTR;
      result->bstrVal = SysAllocString(captions[arg(2)].c_str());
      return S_OK;
    }
    if (id == 6 && (flags & DISPATCH_PROPERTYPUTREF) && args == 0 && value->vt == VT_DISPATCH) {
      if (data_source != nullptr) data_source->Release();
      data_source = value->pdispVal;
      data_source->AddRef();
      for (int k = 0; k < 3; ++k) {  // the grid rebuilds its columns from the data
        widths[k] = 0;
        captions[k].clear();
        types[k] = 0;
      }
      return S_OK;
    }
    ++unexpected;
    return DISP_E_MEMBERNOTFOUND;
  }

  // ITypeInfo: only the name is asked for.
  HRESULT STDMETHODCALLTYPE GetDocumentation(MEMBERID id, BSTR* name, BSTR* doc, DWORD* context, BSTR* file) override {
    if (id != MEMBERID_NIL || name == nullptr) return Unexpected();
    *name = SysAllocString(type_name_);
    if (doc != nullptr) *doc = nullptr;
    if (context != nullptr) *context = 0;
    if (file != nullptr) *file = nullptr;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeAttr(TYPEATTR**) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetTypeComp(ITypeComp**) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetFuncDesc(UINT, FUNCDESC**) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetVarDesc(UINT, VARDESC**) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetNames(MEMBERID, BSTR*, UINT, UINT*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetRefTypeOfImplType(UINT, HREFTYPE*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetImplTypeFlags(UINT, INT*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(LPOLESTR*, UINT, MEMBERID*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE Invoke(PVOID, MEMBERID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return Unexpected();
  }
  HRESULT STDMETHODCALLTYPE GetDllEntry(MEMBERID, INVOKEKIND, BSTR*, BSTR*, WORD*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetRefTypeInfo(HREFTYPE, ITypeInfo**) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE AddressOfMember(MEMBERID, INVOKEKIND, PVOID*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID, PVOID*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetMops(MEMBERID, BSTR*) override { return Unexpected(); }
  HRESULT STDMETHODCALLTYPE GetContainingTypeLib(ITypeLib**, UINT*) override { return Unexpected(); }
  void STDMETHODCALLTYPE ReleaseTypeAttr(TYPEATTR*) override { ++unexpected; }
  void STDMETHODCALLTYPE ReleaseFuncDesc(FUNCDESC*) override { ++unexpected; }
  void STDMETHODCALLTYPE ReleaseVarDesc(VARDESC*) override { ++unexpected; }

 private:
  static HRESULT Answer(VARIANT* result, long value) {
    result->vt = VT_I4;
    result->lVal = value;
    return S_OK;
  }
  HRESULT Unexpected() {
    ++unexpected;
    return E_NOTIMPL;
  }

  const wchar_t* type_name_;
};

_DataCollection* LoadedCollection(Server& server) {
  _DataCollection* collection = server.Create<_DataCollection>(CLSID_DataCollection);
  if (collection == nullptr) return nullptr;
  BSTR text = SysAllocString(
      L"<R><COLLECTION><L><COMPONENT><I><PROPERTIES><SITE>N</SITE><DAY>Mo</DAY><PASSED>yes</PASSED></PROPERTIES>"
      L"</I></COMPONENT></L></COLLECTION></R>");
  collection->put_Data(&text);
  SysFreeString(text);
  return collection;
}

bool IsDataSource(IDispatch* object) {
  _DataCollectionSource* source = nullptr;
  if (object == nullptr ||
      FAILED(object->QueryInterface(__uuidof(_DataCollectionSource), reinterpret_cast<void**>(&source)))) {
    return false;
  }
  source->Release();
  return true;
}

void BindToGridKeepsTheGridLayout(Server& server) {
  _DataCollection* collection = LoadedCollection(server);
  Check("DataCollection for a grid", collection != nullptr);
  if (collection == nullptr) return;
  FakeGrid grid(L"VSFlexGrid");
  IDispatch* control = &grid;
  BSTR columns = SysAllocString(L"");
  VARIANT_BOOL bound = VARIANT_TRUE;
  Check("BindToGrid on a grid", collection->BindToGrid(&control, columns, columns, &bound) == S_OK);
  Check("BindToGrid answers False", bound == VARIANT_FALSE);
  Check("the grid got a data source", IsDataSource(grid.data_source));
  Check("column widths put back", grid.widths[0] == 100 && grid.widths[1] == 200 && grid.widths[2] == 300);
  Check("header texts put back", grid.captions[0] == L"Site" && grid.captions[2] == L"Passed");
  Check("column types put back", grid.types[0] == 8 && grid.types[2] == 11);
  Check("the grid saw no unexpected call", grid.unexpected == 0);

  // A type name that differs in case only is no grid: its layout is left alone.
  FakeGrid other(L"vsflexgrid");
  control = &other;
  Check("BindToGrid on another control", collection->BindToGrid(&control, columns, columns, &bound) == S_OK);
  Check("the other control got a data source", IsDataSource(other.data_source));
  Check("no layout calls on the other control", other.layout_calls == 0 && other.unexpected == 0);
  SysFreeString(columns);
  collection->Release();
}

void LocksKeepTheDll(Server& server) {
  IClassFactory* factory = nullptr;
  server.get_class_object(CLSID_DataCollectionSource, IID_IClassFactory, reinterpret_cast<void**>(&factory));
  Check("class object", factory != nullptr);
  if (factory == nullptr) return;
  factory->LockServer(TRUE);
  factory->Release();
  Check("a lock keeps the DLL", server.can_unload_now() == S_FALSE);
  server.get_class_object(CLSID_DataCollectionSource, IID_IClassFactory, reinterpret_cast<void**>(&factory));
  factory->LockServer(FALSE);
  factory->Release();
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
  if (argc != 2) {
    std::printf("usage: client PATH-TO-varnex.dll\n");
    return 2;
  }
  CoInitialize(nullptr);
  HMODULE dll = LoadLibraryW(argv[1]);
  Check("the DLL loads", dll != nullptr);
  if (dll != nullptr) {
    Server server{reinterpret_cast<GetClassObject>(GetProcAddress(dll, "DllGetClassObject")),
                  reinterpret_cast<CanUnloadNow>(GetProcAddress(dll, "DllCanUnloadNow"))};
    Check("the entry points", server.get_class_object != nullptr && server.can_unload_now != nullptr);
    if (server.get_class_object != nullptr && server.can_unload_now != nullptr) {
      Check("nothing created: the DLL may go", server.can_unload_now() == S_OK);
      TransportThroughItsVtable(server);
      RowsKeepTheirIdentity(server);
      BindToGridKeepsTheGridLayout(server);
      LocksKeepTheDll(server);
      Check("everything released: the DLL may go", server.can_unload_now() == S_OK);
    }
  }
  CoUninitialize();
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0 ? 0 : 1;
}
