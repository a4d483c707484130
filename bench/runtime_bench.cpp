// The platform's containers under load: removing every key of a large Dictionary.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "varnex/dictionary.hpp"

namespace {

using varnex::Long;

void BM_DictionaryRemoveAll(benchmark::State& state) {
  std::vector<std::string> keys;
  for (Long i = 0; i < state.range(0); ++i) keys.push_back("key" + std::to_string(i));
  for (auto _ : state) {
    state.PauseTiming();
    varnex::Dictionary dictionary(varnex::TextCompare);
    for (const std::string& key : keys) dictionary.Add(key, varnex::Variant(key));
    state.ResumeTiming();
    for (const std::string& key : keys) dictionary.Remove(key);
    benchmark::DoNotOptimize(dictionary.Count());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_DictionaryRemoveAll)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
