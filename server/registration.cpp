#include "registration.hpp"

#include <string>

#include <windows.h>
#include <oleauto.h>

#include "classes.hpp"
#include "com_ptr.hpp"
#include "module.hpp"
#include "varnex.h"

namespace varnex::server {
namespace {

std::wstring GuidText(REFGUID guid) {
  wchar_t text[40] = {};
  StringFromGUID2(guid, text, 40);
  return text;
}

// Creates HKEY_CLASSES_ROOT\key and sets one value (an empty name sets the default value).
HRESULT SetValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  HKEY handle = nullptr;
  LONG status = RegCreateKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle, nullptr);
  if (status != ERROR_SUCCESS) return HRESULT_FROM_WIN32(status);
  status = RegSetValueExW(handle, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(handle);
  return HRESULT_FROM_WIN32(status);
}

HRESULT RemoveKey(const std::wstring& key) {
  const LONG status = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(status);
}

HRESULT RegisterClass(const ClassEntry& entry, const std::wstring& path) {
  const std::wstring clsid_key = L"CLSID\\" + GuidText(*entry.clsid);
  const std::wstring prog_id = entry.prog_id;
  const std::pair<std::wstring, std::pair<const wchar_t*, std::wstring>> values[] = {
      {clsid_key, {nullptr, entry.description}},
      {clsid_key + L"\\InprocServer32", {nullptr, path}},
      {clsid_key + L"\\InprocServer32", {L"ThreadingModel", L"Apartment"}},
      {clsid_key + L"\\ProgID", {nullptr, prog_id}},
      {clsid_key + L"\\TypeLib", {nullptr, GuidText(LIBID_Varnex)}},
      {clsid_key + L"\\Version", {nullptr, L"1.0"}},
      {prog_id, {nullptr, entry.description}},
      {prog_id + L"\\CLSID", {nullptr, GuidText(*entry.clsid)}},
  };
  for (const auto& [key, value] : values) {
    if (const HRESULT hr = SetValue(key, value.first, value.second); FAILED(hr)) return hr;
  }
  return S_OK;
}

HRESULT UnregisterClass(const ClassEntry& entry) {
  const HRESULT clsid = RemoveKey(L"CLSID\\" + GuidText(*entry.clsid));
  const HRESULT prog_id = RemoveKey(entry.prog_id);
  return FAILED(clsid) ? clsid : prog_id;
}

constexpr SYSKIND kSysKind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

}  // namespace

HRESULT RegisterServer() noexcept {
  try {
    const std::wstring path = ModulePath();
    for (const ClassEntry& entry : Classes()) {
      if (const HRESULT hr = RegisterClass(entry, path); FAILED(hr)) return hr;
    }
    ComPtr<ITypeLib> library;
    return LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, library.put());
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

HRESULT UnregisterServer() noexcept {
  try {
    HRESULT result = S_OK;
    for (const ClassEntry& entry : Classes()) {
      if (const HRESULT hr = UnregisterClass(entry); FAILED(hr)) result = hr;
    }
    const HRESULT hr = UnRegisterTypeLib(LIBID_Varnex, 1, 0, LOCALE_NEUTRAL, kSysKind);
    if (FAILED(hr) && hr != TYPE_E_REGISTRYACCESS && hr != TYPE_E_CANTLOADLIBRARY) result = hr;
    return result;
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace varnex::server
