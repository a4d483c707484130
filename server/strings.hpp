// BSTR (UTF-16) to and from the core's UTF-8, losslessly: characters outside the BMP travel as
// surrogate pairs, and a lone surrogate is kept as its own three-byte sequence.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>
#include <oleauto.h>

namespace varnex::server {

std::string Utf8FromUtf16(std::u16string_view text);
std::u16string Utf16FromUtf8(std::string_view text);

// A null BSTR reads as "".
std::string ToUtf8(BSTR text);
// A new BSTR; throws std::bad_alloc when none can be allocated.
BSTR ToBstr(std::string_view text);
// Replaces the string that *target holds (freeing the old one).
void StoreBstr(BSTR* target, std::string_view text);

}  // namespace varnex::server
