#include "server.hpp"

namespace varnex::client {

HRESULT CallExport(const char* name) {
  // The first creation loads the registered DLL the way every client does.
  if (GetModuleHandleW(L"varnex.dll") == nullptr) Create<IUnknown>(CLSID_Transport, IID_IUnknown);
  const HMODULE dll = GetModuleHandleW(L"varnex.dll");
  const auto entry = dll == nullptr ? nullptr : reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(GetProcAddress(dll, name));
  return entry == nullptr ? E_FAIL : entry();
}

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

ComPtr<_DataCollection> SampleCollection() {
  ComPtr<_DataCollection> collection = Create<_DataCollection>(CLSID_DataCollection);
  Bstr text(
      L"<R><COLLECTION><L>"
      L"<COMPONENT><I><PROPERTIES><NAME>North</NAME><CODE>N</CODE><ACTIVE>yes</ACTIVE></PROPERTIES></I></COMPONENT>"
      L"<COMPONENT><I><PROPERTIES><NAME>South</NAME><CODE>S</CODE><ACTIVE>no</ACTIVE></PROPERTIES></I></COMPONENT>"
      L"</L></COLLECTION></R>");
  BSTR data = text.get();
  if (!collection || FAILED(collection->put_Data(&data))) return {};
  return collection;
}

}  // namespace varnex::client
