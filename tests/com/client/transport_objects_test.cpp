// Transport members that take the caller's own objects: a Scripting.Dictionary asked whether it
// holds a key.
#include "server.hpp"

namespace varnex::client {
namespace {

class CallerObjectsTest : public ServerTest {};

// Adds key => "" to a dictionary through its IDispatch.
HRESULT AddKey(IDispatch* dictionary, const wchar_t* key) {
  LPOLESTR name = const_cast<LPOLESTR>(L"Add");
  DISPID id = DISPID_UNKNOWN;
  HRESULT hr = dictionary->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(hr)) return hr;
  Var args[2];
  args[1].vt = VT_BSTR;
  args[1].bstrVal = SysAllocString(key);
  args[0].vt = VT_BSTR;
  args[0].bstrVal = SysAllocString(L"");
  DISPPARAMS params{args, nullptr, 2, 0};
  return dictionary->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr);
}

TEST_F(CallerObjectsTest, DicKeyExistsAsksTheCallersDictionary) {
  ComPtr<_Transport> transport = Create<_Transport>(CLSID_Transport);
  ComPtr<IDispatch> dictionary = Create<IDispatch>(L"Scripting.Dictionary", IID_IDispatch);
  ASSERT_TRUE(transport);
  ASSERT_TRUE(dictionary);
  ASSERT_EQ(AddKey(dictionary.get(), L"NORTH"), S_OK);

  struct Case {
    IDispatch* dictionary;
    const wchar_t* key;
    VARIANT_BOOL expected;
  };
  const Case cases[] = {
      {dictionary.get(), L"NORTH", VARIANT_TRUE},
      {dictionary.get(), L"SOUTH", VARIANT_FALSE},
      {nullptr, L"NORTH", VARIANT_FALSE},  // nothing to ask: False, and no error
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << (c.dictionary ? "a dictionary, " : "nothing, ") << c.key);
    IDispatch* dic = c.dictionary;
    Var key;
    key.vt = VT_BSTR;
    key.bstrVal = SysAllocString(c.key);
    VARIANT_BOOL result = 1;
    EXPECT_EQ(transport->DicKeyExists(&dic, &key, &result), S_OK);
    EXPECT_EQ(result, c.expected);
  }
}

}  // namespace
}  // namespace varnex::client
