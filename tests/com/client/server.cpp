#include "server.hpp"

namespace varnex::client {
namespace {

template <typename Function>
Function Export(const char* name) {
  HMODULE dll = GetModuleHandleW(L"varnex.dll");
  if (dll == nullptr) {
    // Loads the registered DLL the way every client does.
    Create<IUnknown>(CLSID_Transport, IID_IUnknown);
    dll = GetModuleHandleW(L"varnex.dll");
  }
  return dll == nullptr ? nullptr : reinterpret_cast<Function>(GetProcAddress(dll, name));
}

using Entry = HRESULT(STDAPICALLTYPE*)();

HRESULT CallExport(const char* name) {
  const Entry entry = Export<Entry>(name);
  return entry == nullptr ? E_FAIL : entry();
}

}  // namespace

ErrorObject TakeErrorObject() {
  ErrorObject error;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) != S_OK || !info) return error;
  Bstr source;
  Bstr description;
  info->GetGUID(&error.guid);
  info->GetSource(source.put());
  info->GetDescription(description.put());
  error.source = source.text();
  error.description = description.text();
  return error;
}

HRESULT CanUnloadNow() { return CallExport("DllCanUnloadNow"); }
HRESULT RegisterServer() { return CallExport("DllRegisterServer"); }
HRESULT UnregisterServer() { return CallExport("DllUnregisterServer"); }

ComPtr<_DataCollection> SampleCollection() {
  ComPtr<_DataCollection> collection = Create<_DataCollection>(CLSID_DataCollection);
  if (!collection) return collection;
  Bstr text(
      L"<R><COLLECTION><L>"
      L"<COMPONENT><I><PROPERTIES><NAME>North</NAME><CODE>N</CODE><ACTIVE>yes</ACTIVE></PROPERTIES></I></COMPONENT>"
      L"<COMPONENT><I><PROPERTIES><NAME>South</NAME><CODE>S</CODE><ACTIVE>no</ACTIVE></PROPERTIES></I></COMPONENT>"
      L"</L></COLLECTION></R>");
  BSTR data = text.get();
  if (FAILED(collection->put_Data(&data))) return {};
  return collection;
}

}  // namespace varnex::client
