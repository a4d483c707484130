// Loading arbitrary bytes: TransportDoc put, then every read over the result, then the
// document's text must load again.
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnex;
  fuzz::LimitOperations();
  Transport transport;
  bool loaded = true;
  try {
    transport.TransportDoc(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const AutomationError&) {
    loaded = false;
  }
  fuzz::ReadEverything(transport);
  if (loaded) fuzz::CheckReloads(transport);
  return 0;
}
