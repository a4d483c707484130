// The COM server's dispatch layer through IDispatch::Invoke, natively: the same Dispatcher,
// argument conversions, write-backs and Transport and DataCollection objects as in varnex.dll,
// over native stand-ins of OLE Automation (fuzz/com/). The input decodes into calls: a member
// (an id from GetIDsOfNames or any DISPID), invoke flags in any combination, and arguments of
// every VARIANT type, by value or by reference, arrays of several element types and dimensions,
// BSTRs with NULs, lone surrogates and odd byte lengths, named arguments, and null or real
// result, exception and argument-error pointers. Every call must answer S_OK or a failure (with
// the exception filled when it says DISP_E_EXCEPTION), the document's text must load again after
// each call, and when the input ends every object must be released.
#include <deque>
#include <vector>

#include "fuzz/com/oleaut.hpp"
#include "fuzz_support.hpp"
#include "server/classes.hpp"
#include "server/strings.hpp"

namespace varnex::fuzz::com {
long OutstandingDescriptions();
}  // namespace varnex::fuzz::com

namespace varnex::fuzz {
namespace {

constexpr const char16_t* kMemberNames[] = {
    u"TransportDoc", u"RootName", u"AddComponent", u"AddCollection", u"GetComponent", u"GetCompChild",
    u"CountCompChildren", u"FindChildCompByName", u"GetComponentXML", u"ChildOfCollection",
    u"GetComponentStatus", u"RemoveComponentStatus", u"AddCompProperty", u"CountCompProperties",
    u"FindCompPropertyByName", u"GetCompProperty", u"GetCompPropStatus", u"ModifyCompProperty",
    u"GetCompAttribute", u"AddCompAttribute", u"AddCompAttachment", u"GetCompAttachment",
    u"AddCompPrototypeProperty", u"GetCompPrototypeProperties", u"ResetStatus", u"DeleteComponent",
    u"GenerateTransportDoc", u"TrimDocument", u"TrimDocument2", u"MergeDocument", u"UpdateDocument",
    u"AddDomain", u"CountDomains", u"DicKeyExists", u"AddDomainItem", u"CountDomItems", u"AddDomainProperty",
    u"DomainExists", u"CountDomItemProperties", u"FindDomainByName", u"GetDomain", u"GetDomItemProperty",
    u"FindDomItemPropByName", u"AddPropDomain", u"CountPropDomains", u"FindPropDomainByPropName",
    u"GetPropDomain", u"Data", u"Count", u"Item", u"CountPropertyNames", u"PropertyNames", u"NewEnum",
    u"BindToGrid", u"lngHandle", u"nosuchmember"};

constexpr const char* kTexts[] = {
    "<TALVEN><COMPONENT><P1>a</P1></COMPONENT></TALVEN>", "TALVEN", "COMPONENT", "P1", "SITE", "1", "-1", "0",
    "2147483648", "1.5", "2.5", "1e10", "True", "False", "12/31/1999", "", " 7 ", "&H10",
    "<N persist=\"1\"/>", "<?xml version=\"1.0\"?><N/>", "<!-- c --><N/>"};

const char kDocument[] =
    "<TALVEN><COMPONENT><SITE><PROPERTIES><NAME>one</NAME><CODE>2</CODE></PROPERTIES>"
    "<COLLECTION><VISIT><PROPERTIES><DAY>3</DAY></PROPERTIES></VISIT></COLLECTION>"
    "<ATTACHMENTS><NOTE persist=\"1\">x</NOTE></ATTACHMENTS></SITE></COMPONENT></TALVEN>";

BSTR Bstr(std::string_view utf8) { return server::ToBstr(utf8); }

// The values a call's arguments point at, freed after the call (whatever the server wrote back
// into them is freed too).
class Arguments {
 public:
  Arguments(FuzzedDataProvider& input, std::vector<IDispatch*>& objects) : input_(input), objects_(objects) {}
  ~Arguments() {
    for (VARIANT& v : args) VariantClear(&v);
    for (auto& [vt, cell] : cells_) {
      if (vt == VT_DECIMAL) continue;  // the DECIMAL overlays the cell's type field and owns nothing
      if (vt != VT_VARIANT) cell.vt = vt;
      VariantClear(&cell);
    }
  }

  std::vector<VARIANT> args;

  void Make(std::size_t count) {
    args.resize(count);
    for (VARIANT& v : args) {
      VariantInit(&v);
      Value(v, 0);
    }
  }

 private:
  BSTR Text() {
    switch (input_.ConsumeIntegralInRange<int>(0, 5)) {
      case 0: return nullptr;
      case 1: {  // UTF-16 units as given: NULs, lone surrogates
        const std::string bytes = input_.ConsumeRandomLengthString(32);
        return SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size() & ~std::size_t{1}));
      }
      case 2: {  // any byte length, odd ones too
        const std::string bytes = input_.ConsumeRandomLengthString(32);
        return SysAllocStringByteLen(bytes.data(), static_cast<UINT>(bytes.size()));
      }
      case 3: return Bstr(input_.ConsumeRandomLengthString(48));
      default: return Bstr(kTexts[input_.ConsumeIntegralInRange<std::size_t>(0, std::size(kTexts) - 1)]);
    }
  }

  IDispatch* Object() {
    const std::size_t pick = input_.ConsumeIntegralInRange<std::size_t>(0, objects_.size());
    if (pick == objects_.size()) return nullptr;
    objects_[pick]->AddRef();
    return objects_[pick];
  }

  SAFEARRAY* Array() {
    static constexpr VARTYPE kElements[] = {VT_I4, VT_I2, VT_UI1, VT_R8, VT_BOOL, VT_BSTR, VT_VARIANT, VT_DISPATCH};
    const VARTYPE element = kElements[input_.ConsumeIntegralInRange<std::size_t>(0, std::size(kElements) - 1)];
    const UINT dims = input_.ConsumeIntegralInRange<UINT>(0, 2);
    if (dims == 0) return nullptr;  // an undimensioned array
    SAFEARRAYBOUND bounds[2];
    for (UINT d = 0; d < dims; ++d) {
      bounds[d].cElements = input_.ConsumeIntegralInRange<ULONG>(0, 4);
      bounds[d].lLbound = input_.ConsumeBool() ? input_.ConsumeIntegralInRange<LONG>(-2, 2) : input_.ConsumeIntegral<LONG>();
    }
    SAFEARRAY* array = SafeArrayCreate(element, dims, bounds);
    if (array == nullptr) return nullptr;
    for (ULONG i = 0; i < bounds[0].cElements; ++i) {
      for (ULONG j = 0; j < (dims == 2 ? bounds[1].cElements : 1); ++j) {
        LONG at[2] = {static_cast<LONG>(bounds[0].lLbound + static_cast<long long>(i)),
                      static_cast<LONG>(bounds[dims - 1].lLbound + static_cast<long long>(j))};
        VARIANT item;
        VariantInit(&item);
        Value(item, 2);
        VARIANT typed;
        VariantInit(&typed);
        if (element == VT_VARIANT) {
          SafeArrayPutElement(array, at, &item);
        } else if (SUCCEEDED(VariantChangeType(&typed, &item, 0, element))) {
          const bool pointer = element == VT_BSTR || element == VT_DISPATCH;
          SafeArrayPutElement(array, at, pointer ? typed.byref : static_cast<void*>(&typed.lVal));
        }
        VariantClear(&typed);
        VariantClear(&item);
      }
    }
    return array;
  }

  // A value of a basic type in v (which holds nothing).
  void Basic(VARIANT& v, VARTYPE vt) {
    switch (vt) {
      case VT_I1: v.cVal = input_.ConsumeIntegral<char>(); break;
      case VT_UI1: v.bVal = input_.ConsumeIntegral<BYTE>(); break;
      case VT_I2: v.iVal = input_.ConsumeIntegral<SHORT>(); break;
      case VT_UI2: v.uiVal = input_.ConsumeIntegral<USHORT>(); break;
      case VT_I4: case VT_INT:
        v.lVal = input_.ConsumeBool() ? input_.ConsumeIntegralInRange<LONG>(-2, 8) : input_.ConsumeIntegral<LONG>();
        break;
      case VT_UI4: case VT_UINT: v.ulVal = input_.ConsumeIntegral<ULONG>(); break;
      case VT_I8: v.llVal = input_.ConsumeIntegral<LONGLONG>(); break;
      case VT_UI8: v.ullVal = input_.ConsumeIntegral<ULONGLONG>(); break;
      case VT_R4: v.fltVal = input_.ConsumeFloatingPoint<float>(); break;
      case VT_R8: v.dblVal = input_.ConsumeBool() ? input_.ConsumeIntegralInRange<int>(-3, 3) + 0.5 : input_.ConsumeFloatingPoint<double>(); break;
      case VT_DATE: v.date = input_.ConsumeFloatingPointInRange<double>(-700000, 3000000); break;
      case VT_CY: v.cyVal.int64 = input_.ConsumeIntegral<LONGLONG>(); break;
      case VT_BOOL: {
        static constexpr SHORT kBooleans[] = {VARIANT_TRUE, VARIANT_FALSE, 1, 2, -2, 32767};
        v.boolVal = kBooleans[input_.ConsumeIntegralInRange<std::size_t>(0, std::size(kBooleans) - 1)];
        break;
      }
      case VT_ERROR: v.scode = input_.ConsumeBool() ? DISP_E_PARAMNOTFOUND : input_.ConsumeIntegral<LONG>(); break;
      case VT_DECIMAL: {
        DECIMAL d{};
        d.scale = input_.ConsumeIntegralInRange<BYTE>(0, 28);
        d.sign = input_.ConsumeBool() ? DECIMAL_NEG : 0;
        d.Hi32 = input_.ConsumeBool() ? 0 : input_.ConsumeIntegral<ULONG>();
        d.Lo64 = input_.ConsumeIntegral<ULONGLONG>();
        v.decVal = d;
        break;
      }
      case VT_BSTR: v.bstrVal = Text(); break;
      case VT_DISPATCH: v.pdispVal = Object(); break;
      case VT_UNKNOWN: v.punkVal = Object(); break;
      default: break;
    }
    v.vt = vt;
  }

  void Value(VARIANT& v, int depth) {
    static constexpr VARTYPE kTypes[] = {VT_EMPTY, VT_NULL, VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_INT,
                                        VT_UINT, VT_I8, VT_UI8, VT_R4, VT_R8, VT_CY, VT_DATE, VT_BOOL, VT_ERROR,
                                        VT_DECIMAL, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_I4, VT_BSTR};
    const int shape = depth >= 2 ? 0 : input_.ConsumeIntegralInRange<int>(0, 5);
    if (shape == 4) {  // an array, by value or by reference
      const bool by_reference = input_.ConsumeBool();
      SAFEARRAY* array = Array();
      VARTYPE element = VT_VARIANT;
      if (array != nullptr) SafeArrayGetVartype(array, &element);
      if (!by_reference) {
        v.vt = VT_ARRAY | element;
        v.parray = array;
      } else {
        VARIANT& cell = Cell(VT_ARRAY | element);
        cell.parray = array;
        v.vt = VT_BYREF | VT_ARRAY | element;
        v.pparray = &cell.parray;
      }
      return;
    }
    if (shape == 5) {  // a reference to a VARIANT
      VARIANT& cell = Cell(VT_VARIANT);
      Value(cell, depth + 1);
      v.vt = VT_BYREF | VT_VARIANT;
      v.pvarVal = &cell;
      return;
    }
    const VARTYPE vt = kTypes[input_.ConsumeIntegralInRange<std::size_t>(0, std::size(kTypes) - 1)];
    if (shape != 3 || vt == VT_EMPTY || vt == VT_NULL) {
      Basic(v, vt);
      return;
    }
    VARIANT& cell = Cell(vt);  // a typed reference
    Basic(cell, vt);
    if (vt == VT_DECIMAL) {
      v.pdecVal = &cell.decVal;
    } else {
      v.byref = &cell.lVal;
    }
    v.vt = VT_BYREF | vt;
  }

  VARIANT& Cell(VARTYPE vt) {
    cells_.emplace_back(vt, VARIANT{});
    VariantInit(&cells_.back().second);
    return cells_.back().second;
  }

  FuzzedDataProvider& input_;
  std::vector<IDispatch*>& objects_;
  std::deque<std::pair<VARTYPE, VARIANT>> cells_;
};

// TransportDoc get through Invoke, loaded again.
void CheckDocument(IDispatch* transport) {
  DISPPARAMS none = {nullptr, nullptr, 0, 0};
  VARIANT text;
  VariantInit(&text);
  EXCEPINFO exception{};
  const HRESULT hr = transport->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &text, &exception, nullptr);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  if (hr == S_OK) {
    if (text.vt != VT_BSTR) Fail("TransportDoc get answered no string", "");
    const std::string utf8 = server::ToUtf8(text.bstrVal);
    pugi::xml_document parsed;
    if (!utf8.empty() && !xml::LoadText(parsed, utf8)) Fail("the document's own text is not loadable XML", utf8);
  } else if (hr != DISP_E_EXCEPTION) {
    Fail("TransportDoc get failed outside the error object", std::to_string(hr));
  }
  VariantClear(&text);
}

void Call(FuzzedDataProvider& input, IDispatch* target, std::vector<IDispatch*>& objects) {
  DISPID id = 0;
  if (input.ConsumeBool()) {
    const char16_t* name = kMemberNames[input.ConsumeIntegralInRange<std::size_t>(0, std::size(kMemberNames) - 1)];
    LPOLESTR names[] = {reinterpret_cast<LPOLESTR>(const_cast<char16_t*>(name))};
    if (FAILED(target->GetIDsOfNames(IID_NULL, names, 1, 0, &id))) id = input.ConsumeIntegralInRange<DISPID>(-5, 50);
  } else {
    id = input.ConsumeBool() ? input.ConsumeIntegralInRange<DISPID>(-5, 50) : input.ConsumeIntegral<DISPID>();
  }
  const WORD flags = input.ConsumeIntegralInRange<WORD>(0, 15);
  Arguments arguments(input, objects);
  arguments.Make(input.ConsumeIntegralInRange<std::size_t>(0, 8));
  DISPID named[2] = {DISPID_PROPERTYPUT, DISPID_PROPERTYPUT};
  UINT named_count = 0;
  if (!arguments.args.empty()) {
    const int naming = input.ConsumeIntegralInRange<int>(0, 3);
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) && naming != 0) named_count = 1;
    if (naming == 3) {
      named[0] = input.ConsumeIntegralInRange<DISPID>(-5, 8);
      named_count = std::min<UINT>(2, static_cast<UINT>(arguments.args.size()));
    }
  }
  DISPPARAMS params = {arguments.args.empty() ? nullptr : arguments.args.data(),
                       named_count == 0 ? nullptr : named, static_cast<UINT>(arguments.args.size()), named_count};
  const int pointers = input.ConsumeIntegralInRange<int>(0, 7);
  VARIANT result;
  VariantInit(&result);
  EXCEPINFO exception{};
  UINT argument_error = 0xFFFF;
  const HRESULT hr = target->Invoke(id, IID_NULL, 0, flags, pointers & 1 ? nullptr : &params,
                                    pointers & 2 ? nullptr : &result, pointers & 4 ? nullptr : &exception,
                                    input.ConsumeBool() ? nullptr : &argument_error);
  if (hr == DISP_E_EXCEPTION && !(pointers & 4)) {
    if (SUCCEEDED(exception.scode) && exception.wCode == 0) Fail("DISP_E_EXCEPTION without a failure in EXCEPINFO", "");
    if (exception.bstrDescription == nullptr || SysStringLen(exception.bstrDescription) == 0) {
      Fail("DISP_E_EXCEPTION without a description", std::to_string(exception.scode));
    }
  }
  if (hr != S_OK && SUCCEEDED(hr)) Fail("Invoke answered a success other than S_OK", std::to_string(hr));
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  if (VariantClear(&result) != S_OK) Fail("Invoke answered a result that does not clear", "");
  if (com::OutstandingDescriptions() != 0) Fail("a FUNCDESC or TYPEATTR was not released", "");
}

IDispatch* Create(HRESULT (*create)(REFIID, void**)) {
  IDispatch* object = nullptr;
  if (FAILED(create(IID_IDispatch, reinterpret_cast<void**>(&object))) || object == nullptr) {
    Fail("an object of the server could not be created", "");
  }
  return object;
}

}  // namespace
}  // namespace varnex::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnex;
  using namespace varnex::fuzz;
  LimitOperations();
  FuzzedDataProvider input(data, size);
  {
    IDispatch* transport = Create(server::CreateTransportObject);
    std::vector<IDispatch*> objects = {transport, Create(server::CreateTransportObject),
                                       Create(server::CreateDataCollectionObject)};
    if (input.ConsumeBool()) {  // start from a realistic document
      VARIANT text;
      text.vt = VT_BSTR;
      text.bstrVal = Bstr(kDocument);
      DISPID put = DISPID_PROPERTYPUT;
      DISPPARAMS params = {&text, &put, 1, 1};
      transport->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUT, &params, nullptr, nullptr, nullptr);
      VariantClear(&text);
    }
    for (int step = 0; step < 8 && input.remaining_bytes() > 0; ++step) {
      const std::size_t which = input.ConsumeIntegralInRange<std::size_t>(0, 3);
      Call(input, objects[which == 3 ? 2 : which == 2 ? 0 : which], objects);
      CheckDocument(transport);
    }
    for (IDispatch* object : objects) object->Release();
    IErrorInfo* left = nullptr;
    if (GetErrorInfo(0, &left) == S_OK) left->Release();
  }
  if (com::LiveObjects() != 0) Fail("objects of the server outlive every reference to them", std::to_string(com::LiveObjects()));
  return 0;
}
