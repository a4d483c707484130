// The OLE DB simple provider and the data source through their vtables. What they answer is
// tested on the core; here each kind of out value must arrive whole and in the interface's own
// types, listeners must be held and released, and failures must leave their error object.
#include <string>

#include <simpdata.h>
#include <msdatsrc.h>

#include "server.hpp"

namespace varnex::client {
namespace {

// A DataCollectionSource over SampleCollection with the column types text, text and Boolean.
ComPtr<_DataCollectionSource> SampleSource() {
  ComPtr<_DataCollectionSource> source = Create<_DataCollectionSource>(CLSID_DataCollectionSource);
  ComPtr<_DataCollection> collection = SampleCollection();
  if (!source || !collection) return {};
  _IDataCollection* data = collection.get();
  SAFEARRAY* types = SafeArrayCreateVector(VT_I4, 0, 3);
  LONG type[] = {VT_BSTR, VT_BSTR, VT_BOOL};
  for (LONG i = 0; i < 3; ++i) SafeArrayPutElement(types, &i, &type[i]);
  const HRESULT hr = SUCCEEDED(source->putref_Data(&data)) ? source->put_DataTypes(&types) : E_FAIL;
  SafeArrayDestroy(types);
  return FAILED(hr) ? ComPtr<_DataCollectionSource>() : source;
}

// The data member that source hands out as the interface iid, or an empty pointer.
ComPtr<IUnknown> MemberOf(const ComPtr<_DataCollectionSource>& source, REFIID iid) {
  ComPtr<DataSource> data_source = source ? source.As<DataSource>(IID_DataSource) : ComPtr<DataSource>();
  ComPtr<IUnknown> member;
  Bstr name;
  if (data_source) data_source->getDataMember(name.get(), iid, member.put());
  return member;
}

// A listener of both kinds that counts its references.
class CountedListener final : public OLEDBSimpleProviderListener, public DataSourceListener {
 public:
  ULONG references = 1;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = nullptr;
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_OLEDBSimpleProviderListener)) {
      *object = static_cast<OLEDBSimpleProviderListener*>(this);
    } else if (IsEqualIID(iid, IID_DataSourceListener)) {
      *object = static_cast<DataSourceListener*>(this);
    }
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE aboutToChangeCell(DBROWCOUNT, DB_LORDINAL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE cellChanged(DBROWCOUNT, DB_LORDINAL) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE aboutToDeleteRows(DBROWCOUNT, DBROWCOUNT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE deletedRows(DBROWCOUNT, DBROWCOUNT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE aboutToInsertRows(DBROWCOUNT, DBROWCOUNT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE insertedRows(DBROWCOUNT, DBROWCOUNT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE rowsAvailable(DBROWCOUNT, DBROWCOUNT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE transferComplete(OSPXFER) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE dataMemberChanged(DataMember) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE dataMemberAdded(DataMember) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE dataMemberRemoved(DataMember) override { return S_OK; }
};

TEST_F(ServerTest, TheProviderAnswersWholeAndHoldsItsListeners) {
  ComPtr<OLEDBSimpleProvider> provider =
      MemberOf(SampleSource(), IID_OLEDBSimpleProvider).As<OLEDBSimpleProvider>(IID_OLEDBSimpleProvider);
  ASSERT_TRUE(provider);
  // Out values of the platform's width arrive whole over garbage.
  DBROWCOUNT rows = static_cast<DBROWCOUNT>(0x5A5A5A5A5A5A5A5AULL);
  DB_LORDINAL columns = rows;
  DBROWCOUNT found = rows;
  WINBOOL async = TRUE;
  Var seven;
  seven.vt = VT_I4;
  seven.lVal = 7;
  ASSERT_EQ(provider->getRowCount(&rows), S_OK);
  ASSERT_EQ(provider->getColumnCount(&columns), S_OK);
  ASSERT_EQ(provider->find(1, 1, seven, OSPFIND_DEFAULT, OSPCOMP_EQ, &found), S_OK);
  ASSERT_EQ(provider->isAsync(&async), S_OK);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(columns, 3);
  EXPECT_EQ(found, 0);
  EXPECT_EQ(async, FALSE);

  // A text cell (row 2, column 2: the arguments keep their places) and a Boolean column's cell.
  Var text;
  Var boolean;
  ASSERT_EQ(provider->getVariant(2, 2, OSPFORMAT_DEFAULT, &text), S_OK);
  ASSERT_EQ(provider->getVariant(1, 3, OSPFORMAT_DEFAULT, &boolean), S_OK);
  ASSERT_EQ(text.vt, VT_BSTR);
  EXPECT_EQ(std::wstring(text.bstrVal), L"S");
  ASSERT_EQ(boolean.vt, VT_BOOL);
  EXPECT_EQ(boolean.boolVal, VARIANT_TRUE);

  // Removing the last listener walks the whole list; removing the earlier one runs past its end.
  CountedListener first;
  CountedListener second;
  ASSERT_EQ(provider->addOLEDBSimpleProviderListener(&first), S_OK);
  ASSERT_EQ(provider->addOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_GT(first.references, 1u) << "the provider holds its listeners";
  EXPECT_EQ(provider->removeOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_EQ(provider->addOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_EQ(provider->removeOLEDBSimpleProviderListener(&first), static_cast<HRESULT>(0x800A0009));
  const ErrorObject error = TakeErrorObject();
  EXPECT_EQ(error.description, L"Subscript out of range");
  EXPECT_TRUE(IsEqualGUID(error.guid, IID_OLEDBSimpleProvider));
  EXPECT_EQ(provider.As<ISupportErrorInfo>(IID_ISupportErrorInfo)->InterfaceSupportsErrorInfo(IID_OLEDBSimpleProvider), S_OK);
  provider = {};
  EXPECT_EQ(first.references + second.references, 2u) << "released with the provider";
}

TEST_F(ServerTest, TheDataSourceHandsOutItsMemberAndHoldsItsListeners) {
  // Without data the request fails and leaves its error object.
  ComPtr<_DataCollectionSource> empty = Create<_DataCollectionSource>(CLSID_DataCollectionSource);
  ASSERT_TRUE(empty);
  EXPECT_FALSE(MemberOf(empty, IID_OLEDBSimpleProvider));
  const ErrorObject error = TakeErrorObject();
  EXPECT_TRUE(IsEqualGUID(error.guid, IID_DataSource));
  EXPECT_EQ(error.source, L"DataCollectionSource");
  EXPECT_EQ(error.description, L"DataSource contains no data.");
  EXPECT_EQ(empty.As<ISupportErrorInfo>(IID_ISupportErrorInfo)->InterfaceSupportsErrorInfo(IID_DataSource), S_OK);

  ComPtr<_DataCollectionSource> source = SampleSource();
  ASSERT_TRUE(source);
  ComPtr<IUnknown> dual = MemberOf(source, __uuidof(_DataCollectionProvider));
  ASSERT_TRUE(dual);
  EXPECT_EQ(dual.get(), static_cast<IUnknown*>(dual.As<_DataCollectionProvider>(__uuidof(_DataCollectionProvider)).get()))
      << "handed out as the interface asked for";
  ComPtr<DataSource> data_source = source.As<DataSource>(IID_DataSource);
  CountedListener listener;
  ASSERT_EQ(data_source->addDataSourceListener(&listener), S_OK);
  EXPECT_EQ(listener.references, 2u);
  ASSERT_EQ(data_source->removeDataSourceListener(&listener), S_OK);
  EXPECT_EQ(listener.references, 1u);
}

}  // namespace
}  // namespace varnex::client
