// What every fuzz target shares: reading the input as a stream of choices, running a call that
// may refuse, and the check that a document's text loads again.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <fuzzer/FuzzedDataProvider.h>

#include "runtime/xml.hpp"
#include "varnex/varnex.hpp"

namespace varnex::fuzz {

// Stops the run with a message; libFuzzer records the input that led here.
[[noreturn]] inline void Fail(const char* what, const std::string& detail) {
  std::fprintf(stderr, "FUZZ CHECK FAILED: %s\n%s\n", what, detail.c_str());
  std::abort();
}

// Runs a call; an automation error is a valid answer, anything else escapes and is a finding.
template <typename Call>
void Try(Call&& call) {
  try {
    call();
  } catch (const AutomationError&) {
  }
}

// The document's text loads again as XML: well-formed, one document element. Loading it into a
// new Transport is tried too; it may refuse (an empty wrapper left by a failed AddComponent does
// not merge), but only with an automation error.
// Answers the length of the text.
inline std::size_t CheckReloads(Transport& transport) {
  std::string text;
  try {
    text = transport.TransportDoc();
  } catch (const AutomationError& error) {
    if (error.description().empty()) Fail("TransportDoc get raised an empty error", "");
    return 0;
  }
  if (text.empty()) return 0;
  pugi::xml_document parsed;
  if (!xml::LoadText(parsed, text)) Fail("the document's own text is not loadable XML", text);
  Transport reloaded;
  Try([&] { reloaded.TransportDoc(text); });
  return text.size();
}

// Documents may legitimately grow by far more than their input (merging a document's own text
// copies wrappers inside attachments named like the root too). A small budget per operation and a
// cap on the document keep every input fast; the behaviour past them is error 7, tested in the
// unit suite.
inline constexpr std::uint64_t kOperationBudget = std::uint64_t{8} << 20;
inline constexpr std::size_t kLargestDocument = std::size_t{1} << 20;
inline void LimitOperations() { SetOperationMemoryBudget(kOperationBudget); }

// A name from the document's own vocabulary, or arbitrary text.
inline std::string Name(FuzzedDataProvider& input) {
  static const char* const kNames[] = {"TALVEN", "COMPONENT", "COLLECTION", "PROPERTIES", "ATTACHMENTS",
                                       "PROTOTYPE", "DOMAIN", "PROPERTY_DOMAINS", "STATUS", "ORIGINAL",
                                       "persist", "SITE", "VISIT", "P1", "*", "a b", "x:y", ""};
  if (input.ConsumeBool()) return kNames[input.ConsumeIntegralInRange<std::size_t>(0, std::size(kNames) - 1)];
  return input.ConsumeRandomLengthString(64);
}

// A handle near the ones in use, or any Long at all.
inline Long Handle(FuzzedDataProvider& input, Long last) {
  switch (input.ConsumeIntegralInRange<int>(0, 7)) {
    case 0: return input.ConsumeIntegral<Long>();
    case 1: return -1;
    default: return input.ConsumeIntegralInRange<Long>(0, last + 2);
  }
}

}  // namespace varnex::fuzz

#include "support/internals.hpp"

namespace varnex::fuzz {

// The highest handle issued so far.
inline Long LastHandle(Transport& transport) { return testing::Internals(transport).last_handle; }

// Every read operation over every handle (and a few beyond), every property, every domain.
inline void ReadEverything(Transport& transport) {
  const Long last = LastHandle(transport);
  std::string name, value, original;
  enComponentStatus status;
  enComponentType type;
  for (Long handle = -1; handle <= last + 1 && handle <= 2000; ++handle) {
    Try([&] { transport.GetComponent(handle, name, status, type); });
    Try([&] { transport.GetComponentStatus(handle); });
    Try([&] { transport.GetComponentXML(handle); });
    Try([&] { transport.ChildOfCollection(handle); });
    Try([&] { transport.GetCompAttribute(handle, "STATUS"); });
    Try([&] { transport.GetCompPrototypeProperties(handle); });
    Try([&] { transport.GetCompAttachment(handle, "*"); });
    for (Boolean ignore : {vbFalse, vbTrue}) {
      Long count = 0;
      Try([&] { count = transport.CountCompChildren(handle, ignore); });
      for (Long child = 0; child <= count + 1 && child <= 50; ++child) {
        Try([&] { transport.GetCompChild(handle, child, name, status, type, ignore); });
      }
    }
    Long properties = 0;
    Try([&] { properties = transport.CountCompProperties(handle); });
    for (Long property = 0; property <= properties + 1 && property <= 50; ++property) {
      Try([&] { transport.GetCompProperty(handle, property, value, status, original); });
      Try([&] { transport.GetCompPropStatus(handle, property); });
    }
  }
  Long domains = 0;
  Try([&] { domains = transport.CountDomains(); });
  for (Long domain = 0; domain <= domains + 1 && domain <= 50; ++domain) {
    std::string code, description;
    Try([&] { transport.GetDomain(domain, code, description); });
    Long items = 0;
    Try([&] { items = transport.CountDomItems(domain); });
    for (Long item = 0; item <= items + 1 && item <= 50; ++item) {
      Long count = 0;
      Try([&] { count = transport.CountDomItemProperties(domain, item); });
      for (Long property = 0; property <= count + 1 && property <= 20; ++property) {
        Try([&] { transport.GetDomItemProperty(domain, item, property, value); });
      }
    }
  }
  Long links = 0;
  Try([&] { links = transport.CountPropDomains(); });
  for (Long link = 0; link <= links + 1 && link <= 50; ++link) {
    std::string domain;
    Try([&] { transport.GetPropDomain(link, domain); });
  }
  for (enTransportMode mode : {tmFull, tmShort, tmMedium}) {
    Try([&] { transport.GenerateTransportDoc(mode); });
  }
}

}  // namespace varnex::fuzz

namespace varnex::fuzz {

// A realistic document: sites with properties, a persistent attachment, a collection of visits,
// prototypes, a modified and a deleted member, domains and property links.
inline void BuildSample(Transport& transport) {
  const Long domain = transport.AddDomain("RESULT", "C", "Result");
  for (const char* code : {"P", "F"}) {
    const Long item = transport.AddDomainItem(domain);
    transport.AddDomainProperty(domain, item, "CODE", code);
    transport.AddDomainProperty(domain, item, "DESC", code[0] == 'P' ? "passed" : "failed");
  }
  transport.AddPropDomain("RESULT", "RESULT");
  for (int s = 0; s < 2; ++s) {
    const Long site = transport.AddComponent(0, "Site", s == 0 ? csNormal : csNew);
    transport.AddCompProperty(site, "NAME", s == 0 ? "North" : "South");
    transport.AddCompProperty(site, "CODE", "S" + std::to_string(s), csNormal, "old");
    transport.AddCompAttribute(site, "REGION", "east");
    transport.AddCompAttachment(site, "<NOTE><TEXT>remark</TEXT></NOTE>", vbTrue);
    const Long visits = transport.AddCollection(site, "Visits");
    transport.AddCompPrototypeProperty(visits, "INSPECTOR", "nobody");
    for (int v = 0; v < 3; ++v) {
      const Long visit = transport.AddComponent(visits, "Visit");
      transport.AddCompProperty(visit, "DATE", "2024-0" + std::to_string(v + 1) + "-01");
      transport.AddCompProperty(visit, "RESULT", v == 1 ? "F" : "P");
      if (v == 1) transport.ModifyCompProperty(visit, 1, "P");
      if (v == 2 && s == 1) transport.DeleteComponent(visit);
    }
  }
}

}  // namespace varnex::fuzz
