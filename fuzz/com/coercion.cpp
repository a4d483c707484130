// VariantChangeType as OLE Automation coerces the types the fuzz target makes: integers round
// half to even and overflow with DISP_E_OVERFLOW, Booleans are 0 and -1 (any other 16-bit value
// reads as itself and as True), strings parse as plain decimal numbers (and "True"/"False" for
// Booleans, month/day/year for dates) in the C locale and stop at an embedded NUL, Empty is 0 or
// "", Null and errors convert to nothing else, and an object gives its default value.
#include <cfenv>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

#include "fuzz/com/oleaut.hpp"

namespace {

using Int = __int128;

// A number on its way between two types: exact while it is an integer.
struct Number {
  bool exact = true;
  Int integer = 0;
  long double real = 0;
  long double Real() const { return exact ? static_cast<long double>(integer) : real; }
};

std::string Narrow(BSTR text) {
  std::string out;
  const UINT length = SysStringLen(text);
  for (UINT i = 0; i < length && text[i] != 0; ++i) out += text[i] < 128 ? static_cast<char>(text[i]) : '\x7f';
  return out;
}

std::string Trimmed(const std::string& text) {
  std::size_t begin = 0, end = text.size();
  while (begin < end && (text[begin] == ' ' || text[begin] == '\t')) ++begin;
  while (end > begin && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
  return text.substr(begin, end - begin);
}

// A plain decimal number: sign, digits (commas between them ignored), a fraction, an exponent.
bool ParseNumber(const std::string& given, Number& out) {
  const std::string text = Trimmed(given);
  std::size_t i = 0;
  bool negative = false;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
  std::string digits;
  bool fraction = false, any = false;
  for (; i < text.size(); ++i) {
    const char c = text[i];
    if (c >= '0' && c <= '9') {
      digits += c;
      any = true;
    } else if (c == ',' && !fraction && any) {
    } else if (c == '.' && !fraction) {
      fraction = true;
      digits += c;
    } else {
      break;
    }
  }
  if (!any) return false;
  std::string exponent;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) exponent += text[j++];
    const std::size_t start = j;
    while (j < text.size() && text[j] >= '0' && text[j] <= '9' && j - start < 6) exponent += text[j++];
    if (j == start) return false;
    i = j;
  }
  if (i != text.size()) return false;
  if (!fraction && exponent.empty() && digits.size() <= 30) {
    Int value = 0;
    for (char c : digits) value = value * 10 + (c - '0');
    out = {true, negative ? -value : value, 0};
    return true;
  }
  const std::string literal = (negative ? "-" : "") + digits + (exponent.empty() ? "" : "e" + exponent);
  out = {false, 0, std::strtold(literal.c_str(), nullptr)};
  return true;
}

bool ParseBoolean(const std::string& given, bool& out) {
  const std::string text = Trimmed(given);
  if (strcasecmp(text.c_str(), "true") == 0) return out = true, true;
  if (strcasecmp(text.c_str(), "false") == 0) return out = false, true;
  return false;
}

// Days since 1899-12-30 of a civil date.
long long DaysOf(long long year, unsigned month, unsigned day) {
  year -= month <= 2;
  const long long era = (year >= 0 ? year : year - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(year - era * 400);
  const unsigned doy = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long long>(doe) - 719468 + 25569;
}

void CivilOf(long long days, long long& year, unsigned& month, unsigned& day) {
  long long z = days - 25569 + 719468;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  day = doy - (153 * mp + 2) / 5 + 1;
  month = mp < 10 ? mp + 3 : mp - 9;
  year = static_cast<long long>(yoe) + era * 400 + (month <= 2);
}

constexpr double kFirstDate = -657434.0;   // 1 January 100
constexpr double kLastDate = 2958465.9999;  // 31 December 9999

bool ParseDate(const std::string& given, double& out) {
  unsigned month = 0, day = 0;
  int year = 0, used = 0;
  const std::string text = Trimmed(given);
  if (std::sscanf(text.c_str(), "%u/%u/%d%n", &month, &day, &year, &used) != 3 || used != static_cast<int>(text.size())) {
    return false;
  }
  if (month < 1 || month > 12 || day < 1 || day > 31 || year < 100 || year > 9999) return false;
  out = static_cast<double>(DaysOf(year, month, day));
  return true;
}

std::string DateText(double date) {
  const double whole = std::trunc(date);
  const double fraction = std::fabs(date - whole);
  std::string text;
  char buffer[64];
  if (whole != 0) {
    long long year = 0;
    unsigned month = 0, day = 0;
    CivilOf(static_cast<long long>(whole), year, month, day);
    std::snprintf(buffer, sizeof buffer, "%u/%u/%lld", month, day, year);
    text = buffer;
  }
  const long seconds = std::lround(fraction * 86400.0) % 86400;
  if (seconds != 0 || whole == 0) {
    const long hours = seconds / 3600;
    std::snprintf(buffer, sizeof buffer, "%s%ld:%02ld:%02ld %s", text.empty() ? "" : " ",
                  hours % 12 == 0 ? 12 : hours % 12, seconds / 60 % 60, seconds % 60, hours < 12 ? "AM" : "PM");
    text += buffer;
  }
  return text;
}

std::string IntegerText(Int value) {
  if (value == 0) return "0";
  const bool negative = value < 0;
  std::string digits;
  while (value != 0) {
    const int digit = static_cast<int>(value % 10);
    digits.insert(digits.begin(), static_cast<char>('0' + (digit < 0 ? -digit : digit)));
    value /= 10;
  }
  return negative ? "-" + digits : digits;
}

// A scaled integer as text, trailing zeros of the fraction dropped.
std::string ScaledText(Int value, int scale) {
  std::string text = IntegerText(value < 0 ? -value : value);
  if (scale > 0) {
    if (static_cast<int>(text.size()) <= scale) text.insert(0, scale + 1 - text.size(), '0');
    text.insert(text.size() - scale, ".");
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  return value < 0 ? "-" + text : text;
}

std::string RealText(long double value, int digits) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*LG", digits, value);
  return buffer;
}

Int DecimalMantissa(const DECIMAL& d) {
  const Int magnitude = (static_cast<Int>(d.Hi32) << 64) | static_cast<Int>(d.Lo64);
  return d.sign & DECIMAL_NEG ? -magnitude : magnitude;
}

HRESULT ChangeType(VARIANT& out, const VARIANT& value, VARTYPE vt);

// The default value of an object (its DISPID_VALUE property).
HRESULT DefaultValue(IUnknown* object, VARIANT& out) {
  if (object == nullptr) return DISP_E_TYPEMISMATCH;
  IDispatch* dispatch = nullptr;
  if (FAILED(object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch)))) return DISP_E_TYPEMISMATCH;
  DISPPARAMS none = {nullptr, nullptr, 0, 0};
  VariantInit(&out);
  const HRESULT hr = dispatch->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &out, nullptr, nullptr);
  dispatch->Release();
  if (FAILED(hr)) {
    VariantClear(&out);
    return DISP_E_TYPEMISMATCH;
  }
  return S_OK;
}

// Converts an object's default value with convert; an object as the default value is refused.
template <typename Convert>
HRESULT WithDefaultValue(IUnknown* object, Convert&& convert) {
  VARIANT fetched;
  HRESULT hr = DefaultValue(object, fetched);
  if (FAILED(hr)) return hr;
  hr = fetched.vt == VT_DISPATCH || fetched.vt == VT_UNKNOWN ? DISP_E_TYPEMISMATCH : convert(fetched);
  VariantClear(&fetched);
  return hr;
}

HRESULT ToText(const VARIANT& value, BSTR& out);

HRESULT NumberOf(const VARIANT& value, Number& out) {
  switch (value.vt) {
    case VT_EMPTY: out = {}; return S_OK;
    case VT_I1: out = {true, value.cVal, 0}; return S_OK;
    case VT_UI1: out = {true, value.bVal, 0}; return S_OK;
    case VT_I2: out = {true, value.iVal, 0}; return S_OK;
    case VT_UI2: out = {true, value.uiVal, 0}; return S_OK;
    case VT_BOOL: out = {true, value.boolVal, 0}; return S_OK;
    case VT_I4: case VT_INT: out = {true, value.lVal, 0}; return S_OK;
    case VT_UI4: case VT_UINT: out = {true, value.ulVal, 0}; return S_OK;
    case VT_I8: out = {true, value.llVal, 0}; return S_OK;
    case VT_UI8: out = {true, value.ullVal, 0}; return S_OK;
    case VT_R4: out = {false, 0, value.fltVal}; return S_OK;
    case VT_R8: out = {false, 0, value.dblVal}; return S_OK;
    case VT_DATE: out = {false, 0, value.date}; return S_OK;
    case VT_CY:
      if (value.cyVal.int64 % 10000 == 0) {
        out = {true, value.cyVal.int64 / 10000, 0};
      } else {
        out = {false, 0, static_cast<long double>(value.cyVal.int64) / 10000};
      }
      return S_OK;
    case VT_DECIMAL: {
      if (value.decVal.scale > 28) return E_INVALIDARG;
      const Int mantissa = DecimalMantissa(value.decVal);
      Int divisor = 1;
      for (int i = 0; i < value.decVal.scale; ++i) divisor *= 10;
      if (mantissa % divisor == 0) {
        out = {true, mantissa / divisor, 0};
      } else {
        out = {false, 0, static_cast<long double>(mantissa) / static_cast<long double>(divisor)};
      }
      return S_OK;
    }
    case VT_BSTR: {
      const std::string text = Narrow(value.bstrVal);
      if (ParseNumber(text, out)) return S_OK;
      double date = 0;
      if (ParseDate(text, date)) return out = {false, 0, date}, S_OK;
      return DISP_E_TYPEMISMATCH;
    }
    case VT_DISPATCH: case VT_UNKNOWN:
      return WithDefaultValue(value.punkVal, [&](const VARIANT& fetched) { return NumberOf(fetched, out); });
    default: return DISP_E_TYPEMISMATCH;
  }
}

// Rounds half to even, as every conversion to an integer does.
bool ToInteger(const Number& number, Int& out) {
  if (number.exact) return out = number.integer, true;
  if (!std::isfinite(number.real) || std::fabs(number.real) > 1e30L) return false;
  const int mode = std::fegetround();
  std::fesetround(FE_TONEAREST);
  out = static_cast<Int>(std::nearbyint(number.real));
  std::fesetround(mode);
  return true;
}

template <typename T>
HRESULT PutInteger(const Number& number, Int low, Int high, T& field) {
  Int value = 0;
  if (!ToInteger(number, value) || value < low || value > high) return DISP_E_OVERFLOW;
  field = static_cast<T>(value);
  return S_OK;
}

HRESULT ToText(const VARIANT& value, BSTR& out) {
  std::string text;
  switch (value.vt) {
    case VT_EMPTY: break;
    case VT_BOOL: text = value.boolVal == VARIANT_FALSE ? "False" : "True"; break;
    case VT_R4: text = RealText(value.fltVal, 7); break;
    case VT_R8: text = RealText(value.dblVal, 15); break;
    case VT_DATE:
      if (!(value.date >= kFirstDate && value.date <= kLastDate)) return E_INVALIDARG;
      text = DateText(value.date);
      break;
    case VT_CY: text = ScaledText(value.cyVal.int64, 4); break;
    case VT_DECIMAL:
      if (value.decVal.scale > 28) return E_INVALIDARG;
      text = ScaledText(DecimalMantissa(value.decVal), value.decVal.scale);
      break;
    case VT_DISPATCH: case VT_UNKNOWN:
      return WithDefaultValue(value.punkVal, [&](const VARIANT& fetched) { return ToText(fetched, out); });
    default: {
      Number number;
      const HRESULT hr = NumberOf(value, number);
      if (FAILED(hr)) return hr;
      text = IntegerText(number.integer);
    }
  }
  const std::u16string wide(text.begin(), text.end());
  out = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(wide.data()), static_cast<UINT>(wide.size()));
  return out == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT ChangeType(VARIANT& out, const VARIANT& value, VARTYPE vt) {
  VariantInit(&out);
  if (value.vt == vt) return VariantCopy(&out, const_cast<VARIANT*>(&value));
  if (vt == VT_EMPTY || vt == VT_NULL) return value.vt == VT_EMPTY || value.vt == VT_NULL ? (out.vt = vt, S_OK) : DISP_E_TYPEMISMATCH;
  if (value.vt == VT_NULL || value.vt == VT_ERROR || vt == VT_ERROR) return DISP_E_TYPEMISMATCH;
  if (vt == VT_DISPATCH || vt == VT_UNKNOWN) {
    if (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN) return DISP_E_TYPEMISMATCH;
    out.vt = vt;
    out.punkVal = nullptr;
    if (value.punkVal == nullptr) return S_OK;
    const HRESULT hr = value.punkVal->QueryInterface(vt == VT_DISPATCH ? IID_IDispatch : IID_IUnknown,
                                                     reinterpret_cast<void**>(&out.punkVal));
    if (FAILED(hr)) VariantInit(&out);
    return FAILED(hr) ? DISP_E_TYPEMISMATCH : S_OK;
  }
  if (vt == VT_BSTR) {
    BSTR text = nullptr;
    const HRESULT hr = ToText(value, text);
    if (FAILED(hr)) return hr;
    out.vt = VT_BSTR;
    out.bstrVal = text;
    return S_OK;
  }
  Number number;
  if (vt == VT_BOOL && value.vt == VT_BSTR) {
    bool boolean = false;
    if (ParseBoolean(Narrow(value.bstrVal), boolean)) {
      out.vt = VT_BOOL;
      out.boolVal = boolean ? VARIANT_TRUE : VARIANT_FALSE;
      return S_OK;
    }
  }
  HRESULT hr = NumberOf(value, number);
  if (FAILED(hr)) return hr;
  VARIANT result;
  VariantInit(&result);
  switch (vt) {
    case VT_I1: hr = PutInteger(number, -128, 127, result.cVal); break;
    case VT_UI1: hr = PutInteger(number, 0, 255, result.bVal); break;
    case VT_I2: hr = PutInteger(number, -32768, 32767, result.iVal); break;
    case VT_UI2: hr = PutInteger(number, 0, 65535, result.uiVal); break;
    case VT_I4: case VT_INT: hr = PutInteger(number, INT32_MIN, INT32_MAX, result.lVal); break;
    case VT_UI4: case VT_UINT: hr = PutInteger(number, 0, UINT32_MAX, result.ulVal); break;
    case VT_I8: hr = PutInteger(number, INT64_MIN, INT64_MAX, result.llVal); break;
    case VT_UI8: hr = PutInteger(number, 0, UINT64_MAX, result.ullVal); break;
    case VT_BOOL:
      result.boolVal = number.Real() != 0 ? VARIANT_TRUE : VARIANT_FALSE;
      if (!number.exact && std::isnan(number.real)) result.boolVal = VARIANT_TRUE;
      break;
    case VT_R4:
      if (std::fabs(number.Real()) > FLT_MAX) hr = DISP_E_OVERFLOW;
      result.fltVal = static_cast<float>(number.Real());
      break;
    case VT_R8:
      if (std::fabs(number.Real()) > DBL_MAX) hr = DISP_E_OVERFLOW;
      result.dblVal = static_cast<double>(number.Real());
      break;
    case VT_DATE:
      if (!(number.Real() >= kFirstDate && number.Real() <= kLastDate)) hr = DISP_E_OVERFLOW;
      result.date = static_cast<double>(number.Real());
      break;
    case VT_CY: {
      Number scaled = number.exact && number.integer < (Int{1} << 100) && number.integer > -(Int{1} << 100)
                          ? Number{true, number.integer * 10000, 0}
                          : Number{false, 0, number.Real() * 10000};
      hr = PutInteger(scaled, INT64_MIN, INT64_MAX, result.cyVal.int64);
      break;
    }
    case VT_DECIMAL: {
      Int mantissa = 0;
      if (!ToInteger(number, mantissa) || mantissa >= (Int{1} << 96) || mantissa <= -(Int{1} << 96)) {
        hr = DISP_E_OVERFLOW;
        break;
      }
      DECIMAL d{};
      d.sign = mantissa < 0 ? DECIMAL_NEG : 0;
      if (mantissa < 0) mantissa = -mantissa;
      d.Lo64 = static_cast<ULONGLONG>(mantissa);
      d.Hi32 = static_cast<ULONG>(mantissa >> 64);
      result.decVal = d;
      break;
    }
    default: hr = DISP_E_BADVARTYPE; break;
  }
  if (FAILED(hr)) return hr;
  result.vt = vt;
  out = result;
  return S_OK;
}

}  // namespace

extern "C" HRESULT WINAPI VariantChangeTypeEx(VARIANTARG* dest, const VARIANTARG* source, LCID, USHORT, VARTYPE vt) {
  if (dest == nullptr || source == nullptr) varnex::fuzz::com::Misuse("VariantChangeType of null");
  if (vt & (VT_BYREF | VT_ARRAY | VT_VECTOR)) return DISP_E_BADVARTYPE;
  VARIANT value;
  VariantInit(&value);
  HRESULT hr = VariantCopyInd(&value, const_cast<VARIANTARG*>(source));
  if (FAILED(hr)) return hr;
  VARIANT result;
  hr = (value.vt & VT_ARRAY) ? DISP_E_TYPEMISMATCH : ChangeType(result, value, vt);
  VariantClear(&value);
  if (FAILED(hr)) return hr;
  hr = VariantClear(dest);
  if (FAILED(hr)) {
    VariantClear(&result);
    return hr;
  }
  *dest = result;
  return S_OK;
}

extern "C" HRESULT WINAPI VariantChangeType(VARIANTARG* dest, const VARIANTARG* source, USHORT flags, VARTYPE vt) {
  return VariantChangeTypeEx(dest, source, 0, flags, vt);
}
