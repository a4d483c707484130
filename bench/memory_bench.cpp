// Memory of a loaded document against pugixml's own for the same text. Every allocation of this
// program (the standard library's and pugixml's) is counted; the counters report the bytes held
// once loading is done and the peak on the way.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>
#include <string>

#include <pugixml.hpp>

#include "bench/sample_documents.hpp"
#include "varnex/transport.hpp"

namespace {

std::size_t held = 0;
std::size_t peak = 0;

// Each block carries its size in front.
void* Allocate(std::size_t size) {
  auto* block = static_cast<std::size_t*>(std::malloc(size + 16));
  if (!block) return nullptr;
  *block = size;
  held += size;
  if (held > peak) peak = held;
  return reinterpret_cast<char*>(block) + 16;
}

void Release(void* memory) {
  if (!memory) return;
  auto* block = reinterpret_cast<std::size_t*>(static_cast<char*>(memory) - 16);
  held -= *block;
  std::free(block);
}

const bool counted = [] {
  pugi::set_memory_management_functions(Allocate, Release);
  return true;
}();

struct Usage {
  std::size_t held, peak;
};

template <typename Load>
Usage Measure(Load&& load) {
  const std::size_t base = held;
  peak = held;
  Usage usage{};
  load([&] { usage.held = held - base; });
  usage.peak = peak - base;
  return usage;
}

void BM_Memory(benchmark::State& state) {
  const std::string& text = varnex::bench::SampleText(state.range(0));
  Usage bare{}, ours{};
  for (auto _ : state) {
    bare = Measure([&](auto loaded) {
      pugi::xml_document document;
      document.load_buffer(text.data(), text.size());
      loaded();
    });
    ours = Measure([&](auto loaded) {
      varnex::Transport transport;
      transport.TransportDoc(text);
      transport.CountCompChildren(0);  // the indexes are built on the first reads
      transport.CountCompProperties(1);
      loaded();
    });
  }
  state.counters["text_bytes"] = static_cast<double>(text.size());
  state.counters["pugixml_bytes"] = static_cast<double>(bare.held);
  state.counters["loaded_bytes"] = static_cast<double>(ours.held);
  state.counters["load_peak_bytes"] = static_cast<double>(ours.peak);
  state.counters["ratio"] = static_cast<double>(ours.held) / static_cast<double>(bare.held);
}
BENCHMARK(BM_Memory)->Arg(10000)->Arg(100000)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace

void* operator new(std::size_t size) {
  if (void* memory = Allocate(size)) return memory;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* memory) noexcept { Release(memory); }
void operator delete[](void* memory) noexcept { Release(memory); }
void operator delete(void* memory, std::size_t) noexcept { Release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { Release(memory); }
