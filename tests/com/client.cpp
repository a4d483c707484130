// A compiled client of varnex.dll: loads the DLL itself, calls the objects through their vtables,
// and checks what scripts cannot see: the DLL may be unloaded exactly when every object and
// lock is released, one wrapper per core object, and the error object behind a failed call.
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
      LocksKeepTheDll(server);
      Check("everything released: the DLL may go", server.can_unload_now() == S_OK);
    }
  }
  CoUninitialize();
  std::printf("%d passed, %d failed\n", passed, failed);
  return failed == 0 ? 0 : 1;
}
