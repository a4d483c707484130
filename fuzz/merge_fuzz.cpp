// Merging and updating arbitrary text into a fixed realistic document; the result's text must
// load again and every read over it must answer.
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnex;
  fuzz::LimitOperations();
  FuzzedDataProvider input(data, size);
  Transport transport;
  fuzz::BuildSample(transport);
  const bool update = input.ConsumeBool();
  const Long parent = fuzz::Handle(input, fuzz::LastHandle(transport));
  const std::string text = input.ConsumeRemainingBytesAsString();
  if (update) {
    fuzz::Try([&] { transport.UpdateDocument(text); });
  } else {
    fuzz::Try([&] { transport.MergeDocument(text, parent); });
  }
  fuzz::CheckReloads(transport);
  fuzz::ReadEverything(transport);
  return 0;
}
