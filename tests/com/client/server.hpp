// What the client tests share: the registered varnex.dll reached through COM, its exports, the
// error object of the last failed call, and the fixture that checks for leaks after every test.
#pragma once

#include <string>

#include <gtest/gtest.h>
#include <windows.h>
#include <oleauto.h>

#include "com_ptr.hpp"
#include "varnex.h"

namespace varnex::client {

using server::ComPtr;

// A BSTR owned by the test.
class Bstr {
 public:
  explicit Bstr(const wchar_t* text = L"") : text_(SysAllocString(text)) {}
  ~Bstr() { SysFreeString(text_); }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  BSTR get() const { return text_; }
  BSTR* put() {
    SysFreeString(text_);
    text_ = nullptr;
    return &text_;
  }
  std::wstring text() const { return text_ == nullptr ? std::wstring() : std::wstring(text_, SysStringLen(text_)); }

 private:
  BSTR text_;
};

// A VARIANT owned by the test.
struct Var : VARIANT {
  Var() { VariantInit(this); }
  ~Var() { VariantClear(this); }
  Var(const Var&) = delete;
  Var& operator=(const Var&) = delete;
};

// The error object that the last failed call left on this thread.
struct ErrorObject {
  GUID guid{};
  std::wstring source;
  std::wstring description;
};
ErrorObject TakeErrorObject();

// An instance of a registered class, as the interface asked for (empty when creation fails).
template <typename Interface>
ComPtr<Interface> Create(REFCLSID clsid, REFIID iid = __uuidof(Interface)) {
  ComPtr<Interface> object;
  CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, iid, reinterpret_cast<void**>(object.put()));
  return object;
}

// Calls an export of varnex.dll without arguments ("DllCanUnloadNow"), loading the DLL if need be.
HRESULT CallExport(const char* name);

// A DataCollection over items of the properties NAME, CODE and ACTIVE.
ComPtr<_DataCollection> SampleCollection();

// Every test leaves nothing alive: afterwards the DLL may be unloaded.
class ServerTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(CallExport("DllCanUnloadNow"), S_OK) << "an object of varnex.dll is still alive"; }
};

}  // namespace varnex::client
