// Single calls on a large document, whose cost must not grow with the document beyond what they
// read or write: GetComponentXML, a deletion mark followed by a count, deleting a large subtree,
// resetting the marks, and building components in one batch.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "bench/sample_documents.hpp"
#include "varnex/transport.hpp"

namespace {

using varnex::Long;

void BM_AddComponents(benchmark::State& state) {
  for (auto _ : state) {
    varnex::Transport transport;
    for (Long i = 0; i < state.range(0); ++i) transport.AddComponent(0, "item");
    benchmark::DoNotOptimize(transport);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_AddComponents)->Arg(10000)->Arg(100000);

void BM_GetComponentXML(benchmark::State& state) {
  const Long components = static_cast<Long>(state.range(0));
  varnex::Transport transport;
  transport.TransportDoc(varnex::bench::SampleText(components));
  std::mt19937 random(7);
  std::uniform_int_distribution<Long> pick(1, components);
  for (auto _ : state) benchmark::DoNotOptimize(transport.GetComponentXML(pick(random)));
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_GetComponentXML)->Arg(10000)->Arg(100000)->Arg(1000000);

// A host deleting components one by one and counting the parent's children after each.
void BM_DeleteThenCount(benchmark::State& state) {
  const Long components = static_cast<Long>(state.range(0));
  varnex::Transport transport;
  transport.TransportDoc(varnex::bench::SampleText(components));
  std::mt19937 random(11);
  std::uniform_int_distribution<Long> pick(1, components);
  std::string name;
  varnex::enComponentStatus status;
  varnex::enComponentType type;
  for (auto _ : state) {
    // Sites that were new leave the document: the position is taken among those still there.
    const Long sites = transport.CountCompChildren(0);
    const Long site = transport.GetCompChild(0, 1 + pick(random) % sites, name, status, type);
    transport.DeleteComponent(site);
    benchmark::DoNotOptimize(transport.CountCompChildren(0, varnex::vbTrue));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_DeleteThenCount)->Arg(10000)->Arg(100000)->Arg(1000000);

// The text of one component holding a collection of N members.
std::string OneLargeSubtree(Long members) {
  varnex::Transport transport;
  const Long top = transport.AddComponent(0, "Order");
  const Long lines = transport.AddCollection(top, "Lines");
  for (Long i = 0; i < members; ++i) {
    const Long line = transport.AddComponent(lines, "Line");
    transport.AddCompProperty(line, "Amount", "1");
  }
  return transport.TransportDoc();
}

// Marking a subtree of N components deleted (the cost per component).
void BM_DeleteLargeSubtree(benchmark::State& state) {
  const std::string text = OneLargeSubtree(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    varnex::Transport transport;
    transport.TransportDoc(text);
    state.ResumeTiming();
    transport.DeleteComponent(1);
    benchmark::DoNotOptimize(transport.CountCompChildren(0));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_DeleteLargeSubtree)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

// Clearing the marks of a modified subtree of N components, then a read.
void BM_ResetStatus(benchmark::State& state) {
  const std::string text = OneLargeSubtree(state.range(0));
  for (auto _ : state) {
    state.PauseTiming();
    varnex::Transport transport;
    transport.TransportDoc(text);
    for (Long line = 3; line < 3 + state.range(0); line += 2) transport.ModifyCompProperty(line, 1, "2");
    state.ResumeTiming();
    transport.ResetStatus();
    benchmark::DoNotOptimize(transport.CountCompChildren(2));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ResetStatus)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
