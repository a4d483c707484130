// Calls through the vtables of the dual interfaces: results, the error object of a failed call,
// one wrapper per core object, and the objects and locks that keep the DLL loaded.
#include "server.hpp"

namespace varnex::client {
namespace {

TEST_F(ServerTest, TransportAnswersAndFailsThroughItsVtable) {
  ComPtr<_Transport> transport = Create<_Transport>(CLSID_Transport);
  ASSERT_TRUE(transport);
  EXPECT_EQ(CanUnloadNow(), S_FALSE) << "an object alive keeps the DLL";

  Bstr name(L"Site");
  Var handle;
  ASSERT_EQ(transport->AddComponent(0, name.get(), csNew, &handle), S_OK);
  EXPECT_EQ(handle.vt, VT_I4);
  EXPECT_EQ(handle.lVal, 1);
  VARIANT_BOOL ignore = VARIANT_TRUE;
  LONG count = -1;
  ASSERT_EQ(transport->CountCompChildren(0, &ignore, &count), S_OK);
  EXPECT_EQ(count, 1);

  EXPECT_EQ(transport->AddComponent(99, name.get(), csNormal, &handle), static_cast<HRESULT>(0x800A01A8));
  const ErrorObject error = TakeErrorObject();
  EXPECT_EQ(error.description, L"AddComponent: Invalid Handle");
  EXPECT_TRUE(IsEqualGUID(error.guid, __uuidof(_Transport)));
  ComPtr<ISupportErrorInfo> support = transport.As<ISupportErrorInfo>(IID_ISupportErrorInfo);
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_Transport)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IPersist), S_FALSE);
}

TEST_F(ServerTest, TheSameRowGivesTheSameObject) {
  ComPtr<_DataCollection> collection = SampleCollection();
  ASSERT_TRUE(collection);
  Var first;
  first.vt = VT_I4;
  first.lVal = 1;
  ComPtr<_DataRow> row1;
  ComPtr<_DataRow> row2;
  ASSERT_EQ(collection->get_Item(first, row1.put()), S_OK);
  ASSERT_EQ(collection->get_Item(first, row2.put()), S_OK);
  EXPECT_EQ(row1.get(), row2.get());

  ComPtr<IUnknown> enumerator;
  ASSERT_EQ(collection->get_NewEnum(enumerator.put()), S_OK);
  ComPtr<IEnumVARIANT> items = enumerator.As<IEnumVARIANT>(IID_IEnumVARIANT);
  ASSERT_TRUE(items);
  Var item;
  ULONG fetched = 0;
  ASSERT_EQ(items->Next(1, &item, &fetched), S_OK);
  EXPECT_EQ(item.vt, VT_DISPATCH);
  EXPECT_EQ(item.pdispVal, static_cast<IDispatch*>(row1.get())) << "the enumerator hands out the same row";
}

TEST_F(ServerTest, ALockKeepsTheDllUntilUnlocked) {
  ComPtr<IClassFactory> factory;
  ASSERT_EQ(CoGetClassObject(CLSID_DataCollectionSource, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                             reinterpret_cast<void**>(factory.put())),
            S_OK);
  factory->LockServer(TRUE);
  factory = ComPtr<IClassFactory>();
  EXPECT_EQ(CanUnloadNow(), S_FALSE);
  CoGetClassObject(CLSID_DataCollectionSource, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                   reinterpret_cast<void**>(factory.put()));
  ASSERT_TRUE(factory);
  factory->LockServer(FALSE);
}

}  // namespace
}  // namespace varnex::client
