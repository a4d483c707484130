// Registration writes the keys of every class and the type library, and unregistration removes
// every one of them again.
#include <string>
#include <vector>

#include "server.hpp"

namespace varnex::client {
namespace {

bool KeyExists(const std::wstring& key) {
  HKEY handle = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return false;
  RegCloseKey(handle);
  return true;
}

std::wstring GuidKey(const wchar_t* folder, REFGUID guid) {
  wchar_t text[40] = {};
  StringFromGUID2(guid, text, 40);
  return std::wstring(folder) + L"\\" + text;
}

std::vector<std::wstring> ServerKeys() {
  return {L"Varnex.Transport",
          L"Varnex.IDataCollection",
          L"Varnex.DataCollection",
          L"Varnex.DataCollectionProvider",
          L"Varnex.DataCollectionSource",
          GuidKey(L"CLSID", CLSID_Transport),
          GuidKey(L"CLSID", CLSID_DataCollectionSource),
          GuidKey(L"Interface", __uuidof(_Transport)),
          GuidKey(L"TypeLib", LIBID_Varnex)};
}

class RegistrationTest : public ServerTest {};

TEST_F(RegistrationTest, KeysComeAndGoWithRegistration) {
  ASSERT_EQ(UnregisterServer(), S_OK);
  for (const std::wstring& key : ServerKeys()) EXPECT_FALSE(KeyExists(key)) << "after unregistering: " << key.c_str();
  ASSERT_EQ(RegisterServer(), S_OK);
  for (const std::wstring& key : ServerKeys()) EXPECT_TRUE(KeyExists(key)) << "after registering: " << key.c_str();
}

}  // namespace
}  // namespace varnex::client
