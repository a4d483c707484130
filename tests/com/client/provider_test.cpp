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

// The provider that source hands out, or an empty pointer.
ComPtr<OLEDBSimpleProvider> ProviderOf(_DataCollectionSource* source) {
  ComPtr<DataSource> data_source;
  source->QueryInterface(IID_DataSource, reinterpret_cast<void**>(data_source.put()));
  ComPtr<IUnknown> member;
  Bstr name;
  if (!data_source || FAILED(data_source->getDataMember(name.get(), IID_OLEDBSimpleProvider, member.put()))) return {};
  return member.As<OLEDBSimpleProvider>(IID_OLEDBSimpleProvider);
}

// A listener of both kinds that counts its references and every notification it gets.
class RecordingListener final : public OLEDBSimpleProviderListener, public DataSourceListener {
 public:
  ULONG references = 1;
  int notifications = 0;

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
  HRESULT STDMETHODCALLTYPE aboutToChangeCell(DBROWCOUNT, DB_LORDINAL) override { return Record(); }
  HRESULT STDMETHODCALLTYPE cellChanged(DBROWCOUNT, DB_LORDINAL) override { return Record(); }
  HRESULT STDMETHODCALLTYPE aboutToDeleteRows(DBROWCOUNT, DBROWCOUNT) override { return Record(); }
  HRESULT STDMETHODCALLTYPE deletedRows(DBROWCOUNT, DBROWCOUNT) override { return Record(); }
  HRESULT STDMETHODCALLTYPE aboutToInsertRows(DBROWCOUNT, DBROWCOUNT) override { return Record(); }
  HRESULT STDMETHODCALLTYPE insertedRows(DBROWCOUNT, DBROWCOUNT) override { return Record(); }
  HRESULT STDMETHODCALLTYPE rowsAvailable(DBROWCOUNT, DBROWCOUNT) override { return Record(); }
  HRESULT STDMETHODCALLTYPE transferComplete(OSPXFER) override { return Record(); }
  HRESULT STDMETHODCALLTYPE dataMemberChanged(DataMember) override { return Record(); }
  HRESULT STDMETHODCALLTYPE dataMemberAdded(DataMember) override { return Record(); }
  HRESULT STDMETHODCALLTYPE dataMemberRemoved(DataMember) override { return Record(); }

 private:
  HRESULT Record() {
    ++notifications;
    return S_OK;
  }
};

constexpr DBROWCOUNT kGarbage = static_cast<DBROWCOUNT>(0x5A5A5A5A5A5A5A5AULL);

// The provider that a data source over the sample collection hands out.
ComPtr<OLEDBSimpleProvider> SampleProvider() {
  ComPtr<_DataCollectionSource> source = SampleSource();
  return source ? ProviderOf(source.get()) : ComPtr<OLEDBSimpleProvider>();
}

TEST_F(ServerTest, ProviderOutValuesArriveWholeInTheirOwnTypes) {
  ComPtr<OLEDBSimpleProvider> provider = SampleProvider();
  ASSERT_TRUE(provider);
  DBROWCOUNT rows = kGarbage;
  DB_LORDINAL columns = kGarbage;
  DBROWCOUNT found = kGarbage;
  OSPRW status = OSPRW_READWRITE;
  WINBOOL async = TRUE;
  BSTR locale = nullptr;
  Var seven;
  seven.vt = VT_I4;
  seven.lVal = 7;
  ASSERT_EQ(provider->getRowCount(&rows), S_OK);
  ASSERT_EQ(provider->getColumnCount(&columns), S_OK);
  ASSERT_EQ(provider->find(1, 1, seven, OSPFIND_DEFAULT, OSPCOMP_EQ, &found), S_OK);
  ASSERT_EQ(provider->getRWStatus(1, 1, &status), S_OK);
  ASSERT_EQ(provider->isAsync(&async), S_OK);
  ASSERT_EQ(provider->getLocale(&locale), S_OK);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(columns, 3);
  EXPECT_EQ(found, 0);
  EXPECT_EQ(status, OSPRW_READONLY);
  EXPECT_EQ(async, FALSE);
  EXPECT_EQ(SysStringLen(locale), 0u);
  SysFreeString(locale);

  // A text cell (row 2, column 2: the arguments keep their places) and a Boolean column's cell.
  Var text;
  Var boolean;
  ASSERT_EQ(provider->getVariant(2, 2, OSPFORMAT_DEFAULT, &text), S_OK);
  ASSERT_EQ(provider->getVariant(1, 3, OSPFORMAT_DEFAULT, &boolean), S_OK);
  ASSERT_EQ(text.vt, VT_BSTR);
  EXPECT_EQ(std::wstring(text.bstrVal), L"S");
  ASSERT_EQ(boolean.vt, VT_BOOL);
  EXPECT_EQ(boolean.boolVal, VARIANT_TRUE);
}

TEST_F(ServerTest, ProviderListenersAreHeldByIdentityAndReleased) {
  ComPtr<OLEDBSimpleProvider> provider = SampleProvider();
  ASSERT_TRUE(provider);
  RecordingListener first;
  RecordingListener second;
  ASSERT_EQ(provider->addOLEDBSimpleProviderListener(&first), S_OK);
  ASSERT_EQ(provider->addOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_GT(first.references, 1u) << "the provider holds its listeners";

  // Removing the last one walks the whole list; removing the earlier one runs past its end.
  EXPECT_EQ(provider->removeOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_EQ(provider->addOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_EQ(provider->removeOLEDBSimpleProviderListener(&first), static_cast<HRESULT>(0x800A0009));
  const ErrorObject error = TakeErrorObject();
  EXPECT_EQ(error.description, L"Subscript out of range");
  EXPECT_TRUE(IsEqualGUID(error.guid, IID_OLEDBSimpleProvider));
  EXPECT_EQ(provider.As<ISupportErrorInfo>(IID_ISupportErrorInfo)->InterfaceSupportsErrorInfo(IID_OLEDBSimpleProvider), S_OK);

  provider = {};
  EXPECT_EQ(first.references, 1u) << "released with the provider";
  EXPECT_EQ(second.references, 1u) << "released with the provider";
  EXPECT_EQ(first.notifications + second.notifications, 0);
}

TEST_F(ServerTest, TheDataSourceGivesAFreshProviderPerRequest) {
  ComPtr<_DataCollectionSource> source = SampleSource();
  ASSERT_TRUE(source);
  ComPtr<OLEDBSimpleProvider> first = ProviderOf(source.get());
  ComPtr<OLEDBSimpleProvider> second = ProviderOf(source.get());
  ASSERT_TRUE(first);
  ASSERT_TRUE(second);
  EXPECT_NE(first.As<IUnknown>(IID_IUnknown).get(), second.As<IUnknown>(IID_IUnknown).get());
  ComPtr<DataSource> data_source = source.As<DataSource>(IID_DataSource);
  ComPtr<IUnknown> dual;
  Bstr name;
  ASSERT_EQ(data_source->getDataMember(name.get(), __uuidof(_DataCollectionProvider), dual.put()), S_OK);
  EXPECT_EQ(dual.get(), static_cast<IUnknown*>(dual.As<_DataCollectionProvider>(__uuidof(_DataCollectionProvider)).get()))
      << "handed out as the interface asked for";

  RecordingListener listener;
  ASSERT_EQ(data_source->addDataSourceListener(&listener), S_OK);
  EXPECT_EQ(listener.references, 2u);
  ASSERT_EQ(data_source->removeDataSourceListener(&listener), S_OK);
  EXPECT_EQ(listener.references, 1u);
  EXPECT_EQ(listener.notifications, 0);
}

TEST_F(ServerTest, AFailedDataSourceRequestLeavesItsErrorObject) {
  ComPtr<_DataCollectionSource> source = Create<_DataCollectionSource>(CLSID_DataCollectionSource);
  ComPtr<DataSource> data_source = source.As<DataSource>(IID_DataSource);
  ASSERT_TRUE(data_source);
  Bstr member;
  ComPtr<IUnknown> provider;
  EXPECT_EQ(data_source->getDataMember(member.get(), IID_OLEDBSimpleProvider, provider.put()),
            static_cast<HRESULT>(0x80040201));
  EXPECT_FALSE(provider);
  const ErrorObject error = TakeErrorObject();
  EXPECT_TRUE(IsEqualGUID(error.guid, IID_DataSource));
  EXPECT_EQ(error.source, L"DataCollectionSource");
  EXPECT_EQ(error.description, L"DataSource contains no data.");
  ComPtr<ISupportErrorInfo> support = source.As<ISupportErrorInfo>(IID_ISupportErrorInfo);
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_DataSource), S_OK);
}

}  // namespace
}  // namespace varnex::client
