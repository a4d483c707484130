#include "errors.hpp"

#include <exception>
#include <new>
#include <string>

#include <windows.h>
#include <oleauto.h>

#include "com_ptr.hpp"
#include "strings.hpp"

namespace varnex::server {
namespace {

constexpr Long kFacilityControlBase = static_cast<Long>(0x800A0000);
constexpr Long kUnspecifiedFailure = static_cast<Long>(0x80004005);  // E_FAIL

HRESULT Report(REFIID iid, const AutomationError& error) noexcept {
  const HRESULT hr = HresultOf(error.number());
  try {
    ComPtr<ICreateErrorInfo> create;
    if (FAILED(CreateErrorInfo(create.put()))) return hr;
    BSTR source = ToBstr(error.source());
    BSTR description = ToBstr(error.description());
    create->SetGUID(iid);
    create->SetSource(source);
    create->SetDescription(description);
    SysFreeString(source);
    SysFreeString(description);
    if (ComPtr<IErrorInfo> info = create.As<IErrorInfo>(IID_IErrorInfo)) SetErrorInfo(0, info.get());
  } catch (...) {
    // No memory left for the texts: the HRESULT alone still reaches the caller.
  }
  return hr;
}

std::string SystemText(HRESULT hr) {
  wchar_t* buffer = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      static_cast<DWORD>(hr), 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
  std::u16string text(reinterpret_cast<const char16_t*>(buffer), length);
  LocalFree(buffer);
  while (!text.empty() && (text.back() == u'\n' || text.back() == u'\r' || text.back() == u' ')) text.pop_back();
  return Utf8FromUtf16(text);
}

}  // namespace

HRESULT HresultOf(Long number) {
  return number >= 1 && number <= 65535 ? static_cast<HRESULT>(kFacilityControlBase + number)
                                        : static_cast<HRESULT>(number);
}

HRESULT ReportCurrentException(REFIID iid) noexcept {
  try {
    try {
      throw;
    } catch (const AutomationError& error) {
      return Report(iid, error);
    } catch (const std::bad_alloc&) {
      return Report(iid, AutomationError::Runtime(errOutOfMemory));
    } catch (const std::exception& error) {
      return Report(iid, AutomationError(kUnspecifiedFailure, kRuntimeSource, error.what()));
    } catch (...) {
      return Report(iid, AutomationError(kUnspecifiedFailure, kRuntimeSource, "Unexpected failure"));
    }
  } catch (...) {
    // Not even the error could be described: there was no memory for its texts.
    return E_OUTOFMEMORY;
  }
}

void RequirePointer(const void* pointer) {
  if (pointer == nullptr) throw AutomationError(static_cast<Long>(E_POINTER), kRuntimeSource, "Invalid pointer");
}

void ThrowIfFailed(HRESULT hr) {
  if (SUCCEEDED(hr)) return;
  ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) == S_OK && info) {
    BSTR source = nullptr;
    BSTR description = nullptr;
    info->GetSource(&source);
    info->GetDescription(&description);
    AutomationError error(static_cast<Long>(hr), ToUtf8(source), ToUtf8(description));
    SysFreeString(source);
    SysFreeString(description);
    throw error;
  }
  throw AutomationError(static_cast<Long>(hr), kRuntimeSource, SystemText(hr));
}

}  // namespace varnex::server
