// Registration writes the keys of the classes and the type library, and unregistration removes
// every one of them again (tests/com/run checks the ProgIDs after the last unregistration too).
#include <string>

#include "server.hpp"

namespace varnex::client {
namespace {

bool KeyExists(REFGUID guid, const wchar_t* folder) {
  wchar_t text[40] = {};
  StringFromGUID2(guid, text, 40);
  HKEY handle = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, (std::wstring(folder) + L"\\" + text).c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return false;
  RegCloseKey(handle);
  return true;
}

TEST_F(ServerTest, KeysComeAndGoWithRegistration) {
  for (const bool registered : {false, true}) {
    ASSERT_EQ(registered ? RegisterServer() : UnregisterServer(), S_OK);
    EXPECT_EQ(KeyExists(CLSID_Transport, L"CLSID"), registered);
    EXPECT_EQ(KeyExists(CLSID_DataCollectionSource, L"CLSID"), registered);
    EXPECT_EQ(KeyExists(__uuidof(_Transport), L"Interface"), registered);
    EXPECT_EQ(KeyExists(LIBID_Varnex, L"TypeLib"), registered);
  }
}

}  // namespace
}  // namespace varnex::client
