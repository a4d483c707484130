// The OLE DB simple provider through its vtable: every member in slot order with out values
// written whole, listeners kept by identity (and the fault of removing an earlier one), and the
// error object of a failed LoadData.
#include <string>
#include <vector>

#include "binding_objects.hpp"

namespace varnex::client {
namespace {

constexpr DBROWCOUNT kGarbage = static_cast<DBROWCOUNT>(0x5A5A5A5A5A5A5A5AULL);

// A listener that records every notification and every interface it is asked for besides its own.
class RecordingListener final : public OLEDBSimpleProviderListener {
 public:
  std::vector<std::string> calls;
  ULONG references = 1;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_OLEDBSimpleProviderListener)) {
      *object = this;
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE aboutToChangeCell(DBROWCOUNT, DB_LORDINAL) override { return Record("aboutToChangeCell"); }
  HRESULT STDMETHODCALLTYPE cellChanged(DBROWCOUNT, DB_LORDINAL) override { return Record("cellChanged"); }
  HRESULT STDMETHODCALLTYPE aboutToDeleteRows(DBROWCOUNT, DBROWCOUNT) override { return Record("aboutToDeleteRows"); }
  HRESULT STDMETHODCALLTYPE deletedRows(DBROWCOUNT, DBROWCOUNT) override { return Record("deletedRows"); }
  HRESULT STDMETHODCALLTYPE aboutToInsertRows(DBROWCOUNT, DBROWCOUNT) override { return Record("aboutToInsertRows"); }
  HRESULT STDMETHODCALLTYPE insertedRows(DBROWCOUNT, DBROWCOUNT) override { return Record("insertedRows"); }
  HRESULT STDMETHODCALLTYPE rowsAvailable(DBROWCOUNT, DBROWCOUNT) override { return Record("rowsAvailable"); }
  HRESULT STDMETHODCALLTYPE transferComplete(OSPXFER) override { return Record("transferComplete"); }

 private:
  HRESULT Record(const char* call) {
    calls.push_back(call);
    return S_OK;
  }
};

class ProviderTest : public ServerTest {
 protected:
  void SetUp() override {
    source_ = SampleSource({VT_BSTR, VT_BSTR, VT_BOOL});
    ASSERT_TRUE(source_);
    provider_ = DataMemberOf<OLEDBSimpleProvider>(source_.get(), IID_OLEDBSimpleProvider);
    ASSERT_TRUE(provider_);
  }
  void TearDown() override {
    provider_ = {};
    source_ = {};
    ServerTest::TearDown();
  }

  ComPtr<_DataCollectionSource> source_;
  ComPtr<OLEDBSimpleProvider> provider_;
};

TEST_F(ProviderTest, CountsAreWrittenWhole) {
  DBROWCOUNT rows = kGarbage;
  DB_LORDINAL columns = kGarbage;
  DBROWCOUNT estimated = kGarbage;
  ASSERT_EQ(provider_->getRowCount(&rows), S_OK);
  ASSERT_EQ(provider_->getColumnCount(&columns), S_OK);
  ASSERT_EQ(provider_->getEstimatedRows(&estimated), S_OK);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(columns, 3);
  EXPECT_EQ(estimated, 2);
}

TEST_F(ProviderTest, CellsReadAsTextAndBooleanColumnsAsBooleans) {
  struct Row {
    DBROWCOUNT row;
    DB_LORDINAL column;
    VARTYPE type;
    const wchar_t* text;
    VARIANT_BOOL boolean;
  };
  const Row rows[] = {
      {0, 2, VT_BSTR, L"CODE", 0},      {1, 1, VT_BSTR, L"North", 0},     {2, 2, VT_BSTR, L"S", 0},
      {1, 3, VT_BOOL, nullptr, VARIANT_TRUE}, {2, 3, VT_BOOL, nullptr, VARIANT_FALSE},
      {3, 1, VT_BSTR, L"", 0},  // beyond the last row
  };
  for (const Row& expected : rows) {
    SCOPED_TRACE(testing::Message() << "row " << expected.row << ", column " << expected.column);
    Var value;
    ASSERT_EQ(provider_->getVariant(expected.row, expected.column, OSPFORMAT_DEFAULT, &value), S_OK);
    ASSERT_EQ(value.vt, expected.type);
    if (expected.type == VT_BSTR) EXPECT_EQ(std::wstring(value.bstrVal), expected.text);
    if (expected.type == VT_BOOL) EXPECT_EQ(value.boolVal, expected.boolean);
  }
  Var unknown;
  EXPECT_EQ(provider_->getVariant(1, 9, OSPFORMAT_DEFAULT, &unknown), S_OK);
  EXPECT_EQ(unknown.vt, VT_EMPTY) << "a column beyond the list is Empty, not an error";
}

TEST_F(ProviderTest, TheTableIsReadOnly) {
  OSPRW status = OSPRW_READWRITE;
  BSTR locale = nullptr;
  DBROWCOUNT deleted = kGarbage;
  DBROWCOUNT inserted = kGarbage;
  DBROWCOUNT found = kGarbage;
  WINBOOL async = TRUE;
  Var value;
  value.vt = VT_I4;
  value.lVal = 7;
  EXPECT_EQ(provider_->getRWStatus(1, 1, &status), S_OK);
  EXPECT_EQ(status, OSPRW_READONLY);
  EXPECT_EQ(provider_->setVariant(1, 1, OSPFORMAT_DEFAULT, value), S_OK);
  EXPECT_EQ(provider_->getLocale(&locale), S_OK);
  EXPECT_EQ(SysStringLen(locale), 0u);
  SysFreeString(locale);
  EXPECT_EQ(provider_->deleteRows(1, 1, &deleted), S_OK);
  EXPECT_EQ(provider_->insertRows(1, 1, &inserted), S_OK);
  EXPECT_EQ(provider_->find(1, 1, value, OSPFIND_DEFAULT, OSPCOMP_EQ, &found), S_OK);
  EXPECT_EQ(provider_->isAsync(&async), S_OK);
  EXPECT_EQ(provider_->stopTransfer(), S_OK);
  EXPECT_EQ(deleted, 0);
  EXPECT_EQ(inserted, 0);
  EXPECT_EQ(found, 0);
  EXPECT_EQ(async, FALSE);
  Var cell;
  ASSERT_EQ(provider_->getVariant(1, 1, OSPFORMAT_DEFAULT, &cell), S_OK);
  EXPECT_EQ(std::wstring(cell.bstrVal), L"North") << "setVariant discards the value";
}

TEST_F(ProviderTest, ListenersAreKeptByIdentityAndNeverCalled) {
  RecordingListener first;
  RecordingListener second;
  ASSERT_EQ(provider_->addOLEDBSimpleProviderListener(&first), S_OK);
  ASSERT_EQ(provider_->addOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_EQ(provider_->addOLEDBSimpleProviderListener(nullptr), S_OK);
  EXPECT_GT(first.references, 1u) << "the provider holds its listeners";

  // Removing the last one walks the whole list; removing the earlier one runs past its end.
  EXPECT_EQ(provider_->removeOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_EQ(provider_->addOLEDBSimpleProviderListener(&second), S_OK);
  EXPECT_EQ(provider_->removeOLEDBSimpleProviderListener(&first), static_cast<HRESULT>(0x800A0009));
  const ErrorObject error = TakeErrorObject();
  EXPECT_TRUE(error.present);
  EXPECT_EQ(error.description, L"Subscript out of range");
  EXPECT_TRUE(IsEqualGUID(error.guid, IID_OLEDBSimpleProvider));

  DBROWCOUNT rows = 0;
  Var value;
  provider_->getRowCount(&rows);
  provider_->getVariant(1, 1, OSPFORMAT_DEFAULT, &value);
  EXPECT_TRUE(first.calls.empty());
  EXPECT_TRUE(second.calls.empty());

  provider_ = {};
  source_ = {};
  EXPECT_EQ(first.references, 1u) << "released with the provider";
  EXPECT_EQ(second.references, 1u) << "released with the provider";
}

TEST_F(ProviderTest, AFailedLoadDataLeavesItsErrorObject) {
  ComPtr<_DataCollectionProvider> provider = provider_.As<_DataCollectionProvider>(__uuidof(_DataCollectionProvider));
  ComPtr<_DataCollection> collection = SampleCollection();
  ASSERT_TRUE(provider);
  ASSERT_TRUE(collection);
  _IDataCollection* data = collection.get();
  SAFEARRAY* never_set = nullptr;
  Bstr fields;
  EXPECT_EQ(provider->LoadData(&data, &never_set, fields.get()), static_cast<HRESULT>(0x80040201));
  const ErrorObject error = TakeErrorObject();
  EXPECT_EQ(error.source, L"DataCollectionProvider");
  EXPECT_EQ(error.description, L"Error Loading Data into Provider.");

  ComPtr<ISupportErrorInfo> support = provider_.As<ISupportErrorInfo>(IID_ISupportErrorInfo);
  ASSERT_TRUE(support);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_OLEDBSimpleProvider), S_OK);
}

}  // namespace
}  // namespace varnex::client
