// The rest of the platform around the server's dispatch code, natively: the thread's error
// object (CreateErrorInfo, SetErrorInfo, GetErrorInfo), slim locks (one thread here), and the
// calls that reach the registry or other servers, which find nothing (the target has no
// Scripting.Dictionary or MSXML to create). module.cpp itself (DllMain, the module's path) is
// Windows-only; its object count is kept here the same way, so that the target can check that
// every object is released.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "fuzz/com/oleaut.hpp"
#include "server/module.hpp"

namespace {

std::atomic<long> live_objects{0};

BSTR Copy(BSTR text) { return text == nullptr ? nullptr : SysAllocStringLen(text, SysStringLen(text)); }

class ErrorInfo final : public ICreateErrorInfo, public IErrorInfo {
 public:
  ~ErrorInfo() {
    SysFreeString(source_);
    SysFreeString(description_);
    SysFreeString(help_file_);
  }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IErrorInfo)) {
      *object = static_cast<IErrorInfo*>(this);
    } else if (IsEqualIID(iid, IID_ICreateErrorInfo)) {
      *object = static_cast<ICreateErrorInfo*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE SetGUID(REFGUID guid) override { return guid_ = guid, S_OK; }
  HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR text) override { return Store(source_, text); }
  HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR text) override { return Store(description_, text); }
  HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR text) override { return Store(help_file_, text); }
  HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD context) override { return help_context_ = context, S_OK; }
  HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) override { return *guid = guid_, S_OK; }
  HRESULT STDMETHODCALLTYPE GetSource(BSTR* text) override { return *text = Copy(source_), S_OK; }
  HRESULT STDMETHODCALLTYPE GetDescription(BSTR* text) override { return *text = Copy(description_), S_OK; }
  HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* text) override { return *text = Copy(help_file_), S_OK; }
  HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* context) override { return *context = help_context_, S_OK; }

 private:
  // The texts come in as C strings (the server passes BSTRs, which end in a NUL too).
  static HRESULT Store(BSTR& field, LPOLESTR text) {
    SysFreeString(field);
    field = SysAllocString(text);
    return S_OK;
  }
  ULONG references_ = 1;
  GUID guid_{};
  BSTR source_ = nullptr;
  BSTR description_ = nullptr;
  BSTR help_file_ = nullptr;
  DWORD help_context_ = 0;
};

IErrorInfo* thread_error = nullptr;

}  // namespace

long varnex::fuzz::com::LiveObjects() { return live_objects; }

extern "C" {

HRESULT WINAPI CreateErrorInfo(ICreateErrorInfo** out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = new ErrorInfo;
  return S_OK;
}

HRESULT WINAPI SetErrorInfo(ULONG, IErrorInfo* info) {
  if (info != nullptr) info->AddRef();
  if (thread_error != nullptr) thread_error->Release();
  thread_error = info;
  return S_OK;
}

HRESULT WINAPI GetErrorInfo(ULONG, IErrorInfo** out) {
  if (out == nullptr) return E_INVALIDARG;
  *out = thread_error;
  thread_error = nullptr;
  return *out != nullptr ? S_OK : S_FALSE;
}

void WINAPI AcquireSRWLockExclusive(SRWLOCK*) {}
void WINAPI ReleaseSRWLockExclusive(SRWLOCK*) {}

// The system's text of an HRESULT; here its number ("Error 0x800401F3"), in a buffer that
// LocalFree releases, as FORMAT_MESSAGE_ALLOCATE_BUFFER asks.
DWORD WINAPI FormatMessageW(DWORD flags, LPCVOID, DWORD id, DWORD, LPWSTR buffer, DWORD, __ms_va_list*) {
  if (!(flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) || buffer == nullptr) varnex::fuzz::com::Misuse("FormatMessageW");
  char text[32];
  const int length = std::snprintf(text, sizeof text, "Error 0x%08X", static_cast<unsigned>(id));
  auto* wide = static_cast<WCHAR*>(std::malloc((length + 1) * sizeof(WCHAR)));
  for (int i = 0; i <= length; ++i) wide[i] = static_cast<WCHAR>(text[i]);
  *reinterpret_cast<WCHAR**>(buffer) = wide;
  return static_cast<DWORD>(length);
}
HLOCAL WINAPI LocalFree(HLOCAL memory) {
  std::free(memory);
  return nullptr;
}

HRESULT WINAPI CLSIDFromProgID(LPCOLESTR, CLSID*) { return CO_E_CLASSSTRING; }
HRESULT WINAPI CoCreateInstance(REFCLSID, IUnknown*, DWORD, REFIID, void** out) {
  if (out != nullptr) *out = nullptr;
  return REGDB_E_CLASSNOTREG;
}

}  // extern "C"

namespace varnex::server {

HMODULE ModuleHandle() { return nullptr; }
std::wstring ModulePath() { return {}; }
void ObjectCreated() { ++live_objects; }
void ObjectDestroyed() { --live_objects; }
void LockServer(bool) {}

}  // namespace varnex::server
