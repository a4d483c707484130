// Caller text that becomes part of an XPath expression or a key: attachments, child and
// property look-ups, attributes and the domain look-ups, all with arbitrary strings.
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnex;
  fuzz::LimitOperations();
  FuzzedDataProvider input(data, size);
  Transport transport;
  fuzz::BuildSample(transport);
  const Long site = input.ConsumeIntegralInRange<Long>(0, 3);
  const std::string first = input.ConsumeRandomLengthString(256);
  const std::string second = input.ConsumeRandomLengthString(256);
  const Boolean persist = input.ConsumeBool() ? vbTrue : input.ConsumeIntegral<Boolean>();

  fuzz::Try([&] { transport.GetCompAttachment(site, first); });
  fuzz::Try([&] { transport.FindChildCompByName(site, first); });
  fuzz::Try([&] { transport.FindCompPropertyByName(site, first); });
  fuzz::Try([&] { transport.GetCompAttribute(site, first); });
  fuzz::Try([&] { transport.FindDomainByName(first); });
  fuzz::Try([&] { transport.DomainExists(first); });
  fuzz::Try([&] { transport.FindDomItemPropByName(1, 1, first); });
  fuzz::Try([&] { transport.FindPropDomainByPropName(first); });
  fuzz::Try([&] { transport.AddCompAttachment(site, first + second, persist); });
  fuzz::Try([&] { transport.GetCompAttachment(site, second); });
  fuzz::Try([&] { transport.AddCompAttribute(site, first, second); });
  fuzz::Try([&] { transport.AddCompPrototypeProperty(site, first, second); });
  fuzz::Try([&] { transport.AddCompProperty(site, first, second, csNew, second); });
  fuzz::Try([&] { transport.ModifyCompProperty(site, 1, first); });
  fuzz::Try([&] { transport.AddDomain(first, second, second); });
  fuzz::Try([&] { transport.AddPropDomain(first, second); });
  fuzz::Try([&] { transport.AddDomainProperty(1, 1, first, second); });
  fuzz::CheckReloads(transport);
  return 0;
}
