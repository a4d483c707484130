// The error boundary of every COM method: an automation error becomes an HRESULT and the
// thread's error object (number, source, description); any other exception becomes an
// automation error first. No C++ exception crosses a COM method.
#pragma once

#include <utility>

#include <windows.h>

#include <varnex/automation_error.hpp>

namespace varnex::server {

// Error n in 1..65535 is the HRESULT 0x800A0000 + n; any other number is the HRESULT itself.
HRESULT HresultOf(Long number);

// Makes the exception being handled the error object of the thread and answers its HRESULT.
// Must be called inside a catch block. iid names the interface whose method failed.
HRESULT ReportCurrentException(REFIID iid) noexcept;

// Runs the body of a COM method: S_OK, or the failure reported as above.
template <typename Body>
HRESULT Guard(REFIID iid, Body&& body) noexcept {
  try {
    std::forward<Body>(body)();
    return S_OK;
  } catch (...) {
    return ReportCurrentException(iid);
  }
}

// Runs body and answers its result; any failure answers fallback and reports nothing.
template <typename Result, typename Body>
Result Swallow(Result fallback, Body&& body) noexcept {
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    return fallback;
  }
}

// A null out pointer from the caller: E_POINTER.
void RequirePointer(const void* pointer);

// Turns a failed HRESULT of a call into an automation error: the error object the callee left
// when there is one, else the HRESULT with the system's text.
void ThrowIfFailed(HRESULT hr);

}  // namespace varnex::server
