// Calls through the vtables of the dual interfaces: the error object of a failed call, the locks
// that keep the DLL loaded, and the registry keys that come and go with registration
// (tests/com/run checks the ProgIDs after the last unregistration).
#include <string>

#include "server.hpp"

namespace varnex::client {
namespace {

TEST_F(ServerTest, TransportFailsThroughItsVtable) {
  ComPtr<_Transport> transport = Create<_Transport>(CLSID_Transport);
  ASSERT_TRUE(transport);
  EXPECT_EQ(CallExport("DllCanUnloadNow"), S_FALSE) << "an object alive keeps the DLL";
  Bstr name(L"Site");
  Var handle;
  EXPECT_EQ(transport->AddComponent(99, name.get(), csNormal, &handle), static_cast<HRESULT>(0x800A01A8));
  const ErrorObject error = TakeErrorObject();
  EXPECT_EQ(error.description, L"AddComponent: Invalid Handle");
  EXPECT_TRUE(IsEqualGUID(error.guid, __uuidof(_Transport)));
  ComPtr<ISupportErrorInfo> support = transport.As<ISupportErrorInfo>(IID_ISupportErrorInfo);
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_Transport)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IPersist), S_FALSE);
}

TEST_F(ServerTest, ALockKeepsTheDllUntilUnlocked) {
  for (const BOOL lock : {TRUE, FALSE}) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(CoGetClassObject(CLSID_DataCollectionSource, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                               reinterpret_cast<void**>(factory.put())),
              S_OK);
    factory->LockServer(lock);
    factory = ComPtr<IClassFactory>();
    if (lock) EXPECT_EQ(CallExport("DllCanUnloadNow"), S_FALSE) << "a lock keeps the DLL";
  }
}

bool KeyExists(const wchar_t* folder, REFGUID guid) {
  wchar_t text[40] = {};
  StringFromGUID2(guid, text, 40);
  HKEY handle = nullptr;
  if (RegOpenKeyExW(HKEY_CLASSES_ROOT, (std::wstring(folder) + text).c_str(), 0, KEY_READ, &handle) != ERROR_SUCCESS) return false;
  RegCloseKey(handle);
  return true;
}

TEST_F(ServerTest, KeysComeAndGoWithRegistration) {
  for (const bool registered : {false, true}) {
    ASSERT_EQ(CallExport(registered ? "DllRegisterServer" : "DllUnregisterServer"), S_OK);
    EXPECT_EQ(KeyExists(L"CLSID\\", CLSID_Transport), registered);
    EXPECT_EQ(KeyExists(L"CLSID\\", CLSID_DataCollectionSource), registered);
    EXPECT_EQ(KeyExists(L"Interface\\", __uuidof(_Transport)), registered);
    EXPECT_EQ(KeyExists(L"TypeLib\\", LIBID_Varnex), registered);
  }
}

}  // namespace
}  // namespace varnex::client
