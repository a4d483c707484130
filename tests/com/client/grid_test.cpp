// BindToGrid against a fake grid control reached late-bound as a real one: its type information
// names it, and it records every call with its arguments as they arrived. What BindToGrid does
// with a grid is tested on the core; here the calls must reach the control whole.
#include <algorithm>
#include <string>
#include <vector>

#include <msdatsrc.h>

#include "server.hpp"

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

// A grid of three columns and one row; gets answer from fixed values, puts are only recorded.
class FakeGrid final : public IDispatch {
 public:
  std::vector<std::wstring> calls;  // every call, as "get colwidth(1)" or "let Cell(0,0,2)=Code" or "set DataSource"

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    *object = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ? this : nullptr;
    return *object != nullptr ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    *info = TypeInfoNamed(L"VSFlexGrid").detach();
    return *info != nullptr ? S_OK : E_FAIL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    for (DISPID id = 0; id < static_cast<DISPID>(std::size(kMembers)); ++id) {
      if (_wcsicmp(names[0], kMembers[id]) == 0) return *ids = id, S_OK;
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (put && (params->cNamedArgs != 1 || params->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) return DISP_E_PARAMNOTFOUND;
    std::wstring call = (flags & DISPATCH_PROPERTYPUTREF) ? L"set " : put ? L"let " : L"get ";
    call += kMembers[id];
    LONG last = 0;
    for (UINT i = params->cArgs; i-- > (put ? 1u : 0u);) {
      last = params->rgvarg[i].vt == VT_I4 ? params->rgvarg[i].lVal : -1;
      call += (i + 1 == params->cArgs ? L"(" : L",") + std::to_wstring(last);
    }
    if (params->cArgs > (put ? 1u : 0u)) call += L")";
    const VARIANT& value = params->rgvarg[0];
    if (put && id != kDataSource) call += L"=" + (value.vt == VT_BSTR ? std::wstring(value.bstrVal) : std::to_wstring(value.lVal));
    if (id == kDataSource) {
      ComPtr<DataSource> source;
      params->rgvarg[0].pdispVal->QueryInterface(IID_DataSource, reinterpret_cast<void**>(source.put()));
      if (!source) call += L" (no data source)";
    }
    calls.push_back(call);
    if (put) return S_OK;
    VariantInit(result);
    result->vt = VT_I4;
    switch (id) {
      case kCols: result->lVal = 3; break;
      case kRows: result->lVal = 1; break;
      case kColWidth: result->lVal = 100 * (last + 1); break;
      case kColDataType: result->lVal = last == 2 ? VT_BOOL : VT_BSTR; break;
      case kCell:
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(kHeaders[last]);
        break;
    }
    return S_OK;
  }

 private:
  enum : DISPID { kCols, kColWidth, kRows, kCell, kColDataType, kDataSource };
  static constexpr const wchar_t* kMembers[] = {L"cols", L"colwidth", L"rows", L"Cell", L"ColDataType", L"DataSource"};
  static constexpr const wchar_t* kHeaders[] = {L"Name", L"Code", L"Active"};
};

TEST_F(ServerTest, BindToGridDrivesAGridLateBound) {
  ComPtr<_DataCollection> collection = SampleCollection();
  ASSERT_TRUE(collection);
  FakeGrid grid;
  IDispatch* control = &grid;
  Bstr none;
  VARIANT_BOOL result = VARIANT_TRUE;
  ASSERT_EQ(collection->BindToGrid(&control, none.get(), none.get(), &result), S_OK);
  EXPECT_EQ(result, VARIANT_FALSE);
  // The order of the calls is the core's; here each kind of call must reach the control whole.
  for (const wchar_t* call : {L"get Cell(0,0,1)", L"let colwidth(1)=200", L"let Cell(0,0,2)=Active",
                              L"let ColDataType(2)=11", L"set DataSource"}) {
    EXPECT_NE(std::find(grid.calls.begin(), grid.calls.end(), call), grid.calls.end()) << call;
  }
}

}  // namespace
}  // namespace varnex::client
