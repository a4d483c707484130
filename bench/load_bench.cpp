// Loading whole documents (TransportDoc put, then the first reads) against a bare pugixml parse of
// the same text;
// merging 1,000 components into a large document; merging documents of great depth.
#include <string>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include "bench/sample_documents.hpp"
#include "varnex/transport.hpp"

namespace {

using varnex::Long;

void BM_BareParse(benchmark::State& state) {
  const std::string& text = varnex::bench::SampleText(state.range(0));
  for (auto _ : state) {
    pugi::xml_document document;
    benchmark::DoNotOptimize(document.load_buffer(text.data(), text.size()));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_BareParse)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_LoadTransportDoc(benchmark::State& state) {
  const std::string& text = varnex::bench::SampleText(state.range(0));
  for (auto _ : state) {
    varnex::Transport transport;
    transport.TransportDoc(text);
    // The first reads: the indexes a load leaves marked stale are built here.
    benchmark::DoNotOptimize(transport.CountCompChildren(0));
    benchmark::DoNotOptimize(transport.CountCompProperties(1));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_LoadTransportDoc)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

// 1,000 components merged under the root of a document of N; the document grows by as much on
// every run, which must not change the cost.
void BM_MergeThousand(benchmark::State& state) {
  varnex::Transport transport;
  transport.TransportDoc(varnex::bench::SampleText(state.range(0)));
  const std::string& incoming = varnex::bench::SampleText(1000);
  for (auto _ : state) benchmark::DoNotOptimize(transport.MergeDocument(incoming, 0));
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_MergeThousand)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

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
