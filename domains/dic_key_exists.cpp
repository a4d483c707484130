// The key test that the domain operations are described with, offered to callers for any
// dictionary. Kept apart from the domain tables, which are not public dictionaries.
#include "runtime/trap.hpp"
#include "varnex/dictionary.hpp"
#include "varnex/transport.hpp"

namespace varnex {

Boolean Transport::DicKeyExists(const Dictionary* dic, const std::string& value) {
  // Any failure, a missing dictionary included, answers False.
  return Swallow(vbFalse, [&] { return dic != nullptr && dic->Exists(value) ? vbTrue : vbFalse; });
}

}  // namespace varnex
