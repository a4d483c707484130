// The data source through its vtable: a fresh provider for every request, as the interface asked
// for, and the error object of a request that fails.
#include "binding_objects.hpp"

namespace varnex::client {
namespace {

class SourceTest : public ServerTest {};

// A listener for changes of data members, which records every notification it gets.
class RecordingSourceListener final : public DataSourceListener {
 public:
  int notifications = 0;
  ULONG references = 1;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_DataSourceListener)) {
      *object = this;
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE dataMemberChanged(DataMember) override { return Record(); }
  HRESULT STDMETHODCALLTYPE dataMemberAdded(DataMember) override { return Record(); }
  HRESULT STDMETHODCALLTYPE dataMemberRemoved(DataMember) override { return Record(); }

 private:
  HRESULT Record() {
    ++notifications;
    return S_OK;
  }
};

TEST_F(SourceTest, EveryRequestGivesAFreshProvider) {
  ComPtr<_DataCollectionSource> source = SampleSource({VT_BSTR, VT_BSTR, VT_BOOL});
  ASSERT_TRUE(source);
  ComPtr<OLEDBSimpleProvider> first = DataMemberOf<OLEDBSimpleProvider>(source.get(), IID_OLEDBSimpleProvider);
  ComPtr<OLEDBSimpleProvider> second = DataMemberOf<OLEDBSimpleProvider>(source.get(), IID_OLEDBSimpleProvider);
  ASSERT_TRUE(first);
  ASSERT_TRUE(second);
  EXPECT_NE(first.As<IUnknown>(IID_IUnknown).get(), second.As<IUnknown>(IID_IUnknown).get());
  DB_LORDINAL columns = 0;
  ASSERT_EQ(second->getColumnCount(&columns), S_OK);
  EXPECT_EQ(columns, 3) << "without Fields the columns are the collection's property names";

  ComPtr<_DataCollectionProvider> dual =
      DataMemberOf<_DataCollectionProvider>(source.get(), __uuidof(_DataCollectionProvider));
  EXPECT_TRUE(dual) << "the provider is handed out as the interface asked for";
}

TEST_F(SourceTest, NamesNoDataMembersOfItsOwn) {
  ComPtr<_DataCollectionSource> source = Create<_DataCollectionSource>(CLSID_DataCollectionSource);
  ComPtr<DataSource> data_source = source.As<DataSource>(IID_DataSource);
  ASSERT_TRUE(data_source);
  LONG count = -1;
  EXPECT_EQ(data_source->getDataMemberCount(&count), S_OK);
  EXPECT_EQ(count, 0);
  BSTR name = nullptr;
  EXPECT_EQ(data_source->getDataMemberName(0, &name), static_cast<HRESULT>(0x800A0009));
  EXPECT_EQ(name, nullptr);
  EXPECT_EQ(TakeErrorObject().description, L"Subscript out of range");
}

TEST_F(SourceTest, ListenersAreKeptUntilRemovedAndNeverCalled) {
  ComPtr<_DataCollectionSource> source = SampleSource({VT_BSTR, VT_BSTR, VT_BOOL});
  ComPtr<DataSource> data_source = source.As<DataSource>(IID_DataSource);
  ASSERT_TRUE(data_source);
  RecordingSourceListener listener;
  ASSERT_EQ(data_source->addDataSourceListener(&listener), S_OK);
  EXPECT_EQ(listener.references, 2u);
  EXPECT_TRUE(DataMemberOf<OLEDBSimpleProvider>(source.get(), IID_OLEDBSimpleProvider));
  ASSERT_EQ(data_source->removeDataSourceListener(&listener), S_OK);
  EXPECT_EQ(listener.references, 1u);
  EXPECT_EQ(data_source->removeDataSourceListener(&listener), S_OK) << "removing an unknown listener is no error";
  EXPECT_EQ(listener.notifications, 0);
}

TEST_F(SourceTest, FailedRequestsLeaveTheirErrorObject) {
  struct Case {
    const char* name;
    bool with_data;
    const wchar_t* source;
    const wchar_t* description;
  };
  const Case cases[] = {
      {"no data", false, L"DataCollectionSource", L"DataSource contains no data."},
      {"no data types", true, L"DataCollectionProvider", L"Error Loading Data into Provider."},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ComPtr<_DataCollectionSource> source =
        c.with_data ? SampleSource({}) : Create<_DataCollectionSource>(CLSID_DataCollectionSource);
    ComPtr<DataSource> data_source = source.As<DataSource>(IID_DataSource);
    ASSERT_TRUE(data_source);
    Bstr member;
    ComPtr<IUnknown> provider;
    EXPECT_EQ(data_source->getDataMember(member.get(), IID_OLEDBSimpleProvider, provider.put()),
              static_cast<HRESULT>(0x80040201));
    EXPECT_FALSE(provider);
    const ErrorObject error = TakeErrorObject();
    EXPECT_TRUE(IsEqualGUID(error.guid, IID_DataSource));
    EXPECT_EQ(error.source, c.source);
    EXPECT_EQ(error.description, c.description);
    ComPtr<ISupportErrorInfo> support = source.As<ISupportErrorInfo>(IID_ISupportErrorInfo);
    ASSERT_TRUE(support);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_DataSource), S_OK);
  }
}

}  // namespace
}  // namespace varnex::client
