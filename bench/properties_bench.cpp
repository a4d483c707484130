// The edit loop of a grid: change a property, read it back, on random cells. The cost per call
// must not grow with the size of the document.
#include <benchmark/benchmark.h>

#include <random>
#include <string>

#include "varnex/transport.hpp"

namespace {

using varnex::Long;

constexpr Long kPropertiesPerComponent = 10;

void BM_ModifyThenRead(benchmark::State& state) {
  const Long components = static_cast<Long>(state.range(0));
  varnex::Transport transport;
  for (Long i = 0; i < components; ++i) {
    const Long handle = transport.AddComponent(0, "row");
    for (Long p = 0; p < kPropertiesPerComponent; ++p) {
      transport.AddCompProperty(handle, "cell" + std::to_string(p), "value " + std::to_string(p));
    }
  }
  std::mt19937 random(42);
  std::uniform_int_distribution<Long> row(1, components);
  std::uniform_int_distribution<Long> cell(1, kPropertiesPerComponent);
  std::string value, original;
  varnex::enComponentStatus status;
  // The one rebuild of each index after the additions.
  transport.ModifyCompProperty(1, 1, "warm");
  transport.GetCompProperty(1, 1, value, status, original);
  Long counter = 0;
  for (auto _ : state) {
    const Long handle = row(random);
    const Long k = cell(random);
    transport.ModifyCompProperty(handle, k, "edit " + std::to_string(++counter));
    benchmark::DoNotOptimize(transport.GetCompProperty(handle, k, value, status, original));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ModifyThenRead)->Arg(10000)->Arg(100000)->Arg(1000000);

}  // namespace
