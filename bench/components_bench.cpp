// Building components and reading them back through the child index.
#include <benchmark/benchmark.h>

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

// One rebuild after a run of additions, then constant time per child read.
void BM_ReadAllChildrenAfterAdditions(benchmark::State& state) {
  varnex::Transport transport;
  for (Long i = 0; i < state.range(0); ++i) transport.AddComponent(0, "item");
  std::string name;
  varnex::enComponentStatus status;
  varnex::enComponentType type;
  for (auto _ : state) {
    transport.AddComponent(0, "one_more");
    const Long count = transport.CountCompChildren(0);
    for (Long k = 1; k <= count; ++k) benchmark::DoNotOptimize(transport.GetCompChild(0, k, name, status, type));
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ReadAllChildrenAfterAdditions)->Arg(10000)->Arg(100000);

}  // namespace
