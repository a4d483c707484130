// Giving documents out against a bare pugixml parse plus serialise of the same text, and taking
// a returned document back.
#include <string>

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include "bench/sample_documents.hpp"
#include "varnex/transport.hpp"

namespace {

using varnex::Long;

void BM_BareParseAndSerialise(benchmark::State& state) {
  const std::string& text = varnex::bench::SampleText(state.range(0));
  struct Writer : pugi::xml_writer {
    std::string* out;
    void write(const void* data, size_t size) override { out->append(static_cast<const char*>(data), size); }
  };
  for (auto _ : state) {
    pugi::xml_document document;
    document.load_buffer(text.data(), text.size());
    std::string out;
    Writer writer;
    writer.out = &out;
    document.save(writer, "", pugi::format_raw | pugi::format_no_declaration);
    benchmark::DoNotOptimize(out);
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(BM_BareParseAndSerialise)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_Generate(benchmark::State& state, varnex::enTransportMode mode) {
  const std::string& text = varnex::bench::SampleText(state.range(0));
  varnex::Transport transport;
  transport.TransportDoc(text);
  for (auto _ : state) benchmark::DoNotOptimize(transport.GenerateTransportDoc(mode));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK_CAPTURE(BM_Generate, Short, varnex::tmShort)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Generate, Medium, varnex::tmMedium)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Generate, Full, varnex::tmFull)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

void BM_UpdateDocument(benchmark::State& state) {
  varnex::Transport transport;
  transport.TransportDoc(varnex::bench::SampleText(state.range(0)));
  const std::string returned = transport.GenerateTransportDoc(varnex::tmMedium);
  for (auto _ : state) benchmark::DoNotOptimize(transport.UpdateDocument(returned));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(returned.size()));
}
BENCHMARK(BM_UpdateDocument)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace
