// BindToGrid against a fake grid control, reached late-bound as a real one: its type information
// names it, it records every call, and it rebuilds its columns from the data it is bound to, so
// that only what BindToGrid saved and put back survives.
#include <string>
#include <vector>

#include "binding_objects.hpp"

namespace varnex::client {
namespace {

// Type information that names a control, and nothing else.
ComPtr<ITypeInfo> TypeInfoNamed(const wchar_t* name) {
  ComPtr<ICreateTypeLib2> library;
  ComPtr<ICreateTypeInfo> created;
  if (FAILED(CreateTypeLib2(SYS_WIN64, L"grid.tlb", library.put()))) return {};
  if (FAILED(library->CreateTypeInfo(const_cast<LPOLESTR>(name), TKIND_DISPATCH, created.put()))) return {};
  return created.As<ITypeInfo>(IID_ITypeInfo);
}

std::wstring Text(const VARIANT& value) {
  Var text;
  if (FAILED(VariantChangeType(&text, const_cast<VARIANT*>(&value), 0, VT_BSTR))) return L"?";
  return std::wstring(text.bstrVal, SysStringLen(text.bstrVal));
}

class FakeGrid final : public IDispatch {
 public:
  std::vector<std::wstring> calls;  // every call, as "get colwidth(1)" or "let Cell(0,0,2)=Code"
  std::wstring bound;               // what the grid saw of the data it was given

  FakeGrid(const wchar_t* type_name, LONG rows) : type_info_(TypeInfoNamed(type_name)), rows_(rows) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch)) {
      *object = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override { return --references_; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (!type_info_) return E_FAIL;
    *info = ComPtr<ITypeInfo>(type_info_).detach();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    for (UINT i = 0; i < count; ++i) {
      ids[i] = DISPID_UNKNOWN;
      for (DISPID id = 0; id < static_cast<DISPID>(std::size(kMembers)); ++id) {
        if (_wcsicmp(names[i], kMembers[id]) == 0) ids[i] = id;
      }
      if (ids[i] == DISPID_UNKNOWN) {
        calls.push_back(std::wstring(L"unexpected name ") + names[i]);
        return DISP_E_UNKNOWNNAME;
      }
    }
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    if (id < 0 || id >= static_cast<DISPID>(std::size(kMembers))) {
      calls.push_back(L"unexpected member " + std::to_wstring(id));
      return DISP_E_MEMBERNOTFOUND;
    }
    const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    std::wstring call = (flags & DISPATCH_PROPERTYPUTREF) ? L"set " : put ? L"let " : L"get ";
    call += kMembers[id];
    std::vector<LONG> args;
    for (UINT i = params->cArgs; i-- > (put ? 1u : 0u);) {
      args.push_back(params->rgvarg[i].vt == VT_I4 ? params->rgvarg[i].lVal : -1);
      call += (i + 1 == params->cArgs ? L"(" : L",") + std::to_wstring(args.back());
    }
    if (!args.empty()) call += L")";
    if (put && id != kDataSource) call += L"=" + Text(params->rgvarg[0]);
    calls.push_back(call);
    if (put) return Put(id, args, params->rgvarg[0]);
    return Get(id, args, result);
  }

 private:
  enum : DISPID { kCols, kColWidth, kRows, kCell, kColDataType, kDataSource };
  static constexpr const wchar_t* kMembers[] = {L"cols", L"colwidth", L"rows", L"Cell", L"ColDataType", L"DataSource"};

  HRESULT Get(DISPID id, const std::vector<LONG>& args, VARIANT* result) {
    VariantInit(result);
    result->vt = VT_I4;
    switch (id) {
      case kCols: result->lVal = static_cast<LONG>(widths_.size()); return S_OK;
      case kRows: result->lVal = rows_; return S_OK;
      case kColWidth: result->lVal = widths_.at(args.at(0)); return S_OK;
      case kColDataType: result->lVal = types_.at(args.at(0)); return S_OK;
      case kCell:
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(headers_.at(args.at(2)).c_str());
        return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }

  HRESULT Put(DISPID id, const std::vector<LONG>& args, const VARIANT& value) {
    Var number;
    switch (id) {
      case kDataSource: return Bind(value);
      case kCell: headers_.at(args.at(2)) = Text(value); return S_OK;
      case kColWidth:
      case kColDataType:
        if (FAILED(VariantChangeType(&number, const_cast<VARIANT*>(&value), 0, VT_I4))) return DISP_E_TYPEMISMATCH;
        (id == kColWidth ? widths_ : types_).at(args.at(0)) = number.lVal;
        return S_OK;
    }
    return DISP_E_MEMBERNOTFOUND;
  }

  // Reads the data as a bound grid does, then rebuilds its columns from it: defaults everywhere.
  HRESULT Bind(const VARIANT& value) {
    if (value.vt != VT_DISPATCH || value.pdispVal == nullptr) return DISP_E_TYPEMISMATCH;
    ComPtr<DataSource> source;
    value.pdispVal->QueryInterface(IID_DataSource, reinterpret_cast<void**>(source.put()));
    ComPtr<IUnknown> member;
    Bstr name;
    if (!source) return E_NOINTERFACE;
    if (FAILED(source->getDataMember(name.get(), IID_OLEDBSimpleProvider, member.put()))) {
      // A grid shows no data then; the binding itself stands.
      bound = L"no data: " + TakeErrorObject().description;
      return S_OK;
    }
    ComPtr<OLEDBSimpleProvider> provider = member.As<OLEDBSimpleProvider>(IID_OLEDBSimpleProvider);
    DB_LORDINAL columns = 0;
    Var cell;
    provider->getColumnCount(&columns);
    provider->getVariant(1, 3, OSPFORMAT_DEFAULT, &cell);
    bound = std::to_wstring(columns) + L" columns, cell 1,3 " + (cell.vt == VT_BOOL ? L"Boolean " : L"text ") +
            Text(cell);
    for (std::size_t i = 0; i < widths_.size(); ++i) {
      widths_[i] = 0;
      headers_[i] = L"";
      types_[i] = 0;
    }
    return S_OK;
  }

  ComPtr<ITypeInfo> type_info_;
  LONG rows_;
  std::vector<LONG> widths_{1200, 800, 400};
  std::vector<std::wstring> headers_{L"Name", L"Code", L"Active"};
  std::vector<LONG> types_{VT_BSTR, VT_BSTR, VT_BOOL};
  ULONG references_ = 1;
};

class GridTest : public ServerTest {
 protected:
  // Binds the sample collection to grid; BindToGrid answers False even when it worked.
  static void Bind(FakeGrid& grid) {
    ComPtr<_DataCollection> collection = SampleCollection();
    ASSERT_TRUE(collection);
    IDispatch* control = &grid;
    Bstr columns;
    Bstr property;
    VARIANT_BOOL result = VARIANT_TRUE;
    ASSERT_EQ(collection->BindToGrid(&control, columns.get(), property.get(), &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
  }
};

TEST_F(GridTest, AGridKeepsItsWidthsHeadersAndTypes) {
  FakeGrid grid(L"VSFlexGrid", 1);
  Bind(grid);
  const std::vector<std::wstring> expected = {
      L"get cols",
      L"get colwidth(0)", L"get rows", L"get Cell(0,0,0)",
      L"get colwidth(1)", L"get rows", L"get Cell(0,0,1)",
      L"get colwidth(2)", L"get rows", L"get Cell(0,0,2)",
      L"get cols", L"get ColDataType(0)", L"get ColDataType(1)", L"get ColDataType(2)",
      L"set DataSource",
      L"get cols",
      L"let colwidth(0)=1200", L"get rows", L"let Cell(0,0,0)=Name", L"let ColDataType(0)=8",
      L"let colwidth(1)=800", L"get rows", L"let Cell(0,0,1)=Code", L"let ColDataType(1)=8",
      L"let colwidth(2)=400", L"get rows", L"let Cell(0,0,2)=Active", L"let ColDataType(2)=11",
  };
  EXPECT_EQ(grid.calls, expected);
  EXPECT_EQ(grid.bound, L"3 columns, cell 1,3 Boolean -1") << "the saved types reach the provider";
}

TEST_F(GridTest, AGridWithoutRowsSavesNoHeaders) {
  FakeGrid grid(L"VSFlexGrid", 0);
  Bind(grid);
  const std::vector<std::wstring> expected = {
      L"get cols",
      L"get colwidth(0)", L"get rows", L"get colwidth(1)", L"get rows", L"get colwidth(2)", L"get rows",
      L"get cols", L"get ColDataType(0)", L"get ColDataType(1)", L"get ColDataType(2)",
      L"set DataSource",
      L"get cols",
      L"let colwidth(0)=1200", L"get rows", L"let ColDataType(0)=8",
      L"let colwidth(1)=800", L"get rows", L"let ColDataType(1)=8",
      L"let colwidth(2)=400", L"get rows", L"let ColDataType(2)=11",
  };
  EXPECT_EQ(grid.calls, expected);
}

TEST_F(GridTest, AnotherControlIsOnlyGivenTheSource) {
  // The type name is compared exactly; without saved types the source has none to give.
  FakeGrid grid(L"vsFlexGrid", 1);
  Bind(grid);
  EXPECT_EQ(grid.calls, std::vector<std::wstring>{L"set DataSource"});
  EXPECT_EQ(grid.bound, L"no data: Error Loading Data into Provider.") << "without types the request fails";
}

}  // namespace
}  // namespace varnex::client
