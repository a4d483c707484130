// Loading whole documents (parse, then merge through the building operations) against a bare
// pugixml parse of the same text, and merging documents of great depth.
#include <string>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include "varnex/transport.hpp"

namespace {

using varnex::Long;

// The prefix followed by the number (built by appending: "text" + std::string trips a false
// warning of g++ 12).
std::string Numbered(const char* prefix, int number) {
  std::string text = prefix;
  text += std::to_string(number);
  return text;
}

// N components in three levels (site, collection, members), ten properties each, an attachment
// per site, a few domains and links.
std::string SampleDocument(Long components) {
  varnex::Transport transport;
  for (int d = 0; d < 4; ++d) {
    const Long domain = transport.AddDomain(Numbered("DOMAIN", d), "C", "Description");
    for (int i = 0; i < 25; ++i) {
      const Long item = transport.AddDomainItem(domain);
      transport.AddDomainProperty(domain, item, "CODE", std::to_string(i));
      transport.AddDomainProperty(domain, item, "DESC", Numbered("item ", i));
    }
  }
  const auto add_properties = [&](Long handle) {
    for (int p = 0; p < 10; ++p) transport.AddCompProperty(handle, Numbered("P", p), Numbered("value ", p));
  };
  for (Long made = 0; made < components;) {
    const Long site = transport.AddComponent(0, "Site", varnex::csNew);
    add_properties(site);
    transport.AddCompAttachment(site, "<NOTE><TEXT>remark</TEXT></NOTE>", varnex::vbTrue);
    const Long members = transport.AddCollection(site, "Visits");
    made += 2;
    for (int v = 0; v < 8 && made < components; ++v, ++made) add_properties(transport.AddComponent(members, "Visit"));
  }
  for (int p = 0; p < 10; ++p) transport.AddPropDomain(Numbered("P", p), "DOMAIN1");
  return transport.TransportDoc();
}

void BM_BareParse(benchmark::State& state) {
  const std::string text = SampleDocument(state.range(0));
  for (auto _ : state) {
    pugi::xml_document document;
    benchmark::DoNotOptimize(document.load_buffer(text.data(), text.size()));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_BareParse)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_LoadTransportDoc(benchmark::State& state) {
  const std::string text = SampleDocument(state.range(0));
  for (auto _ : state) {
    varnex::Transport transport;
    transport.TransportDoc(text);
    benchmark::DoNotOptimize(transport);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_LoadTransportDoc)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// Per-level cost stays flat however deep the document goes.
void BM_MergeDeepDocument(benchmark::State& state) {
  std::string text = "<TALVEN>";
  for (Long i = 0; i < state.range(0); ++i) text += "<COMPONENT><C>";
  for (Long i = 0; i < state.range(0); ++i) text += "</C></COMPONENT>";
  text += "</TALVEN>";
  for (auto _ : state) {
    varnex::Transport transport;
    benchmark::DoNotOptimize(transport.MergeDocument(text, 0));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_MergeDeepDocument)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
