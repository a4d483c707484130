// Data binding over many items: filling a DataCollection from text, and reading every cell
// through the provider.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "varnex/data_collection.hpp"
#include "varnex/data_collection_provider.hpp"
#include "varnex/transport.hpp"

namespace {

using varnex::Long;

std::string Items(Long count) {
  varnex::Transport transport;
  const Long visits = transport.AddCollection(0, "Visits");
  for (Long i = 0; i < count; ++i) {
    const Long visit = transport.AddComponent(visits, "Visit");
    transport.AddCompProperty(visit, "Date", "2024-01-01");
    transport.AddCompProperty(visit, "Inspector", "Ann");
    transport.AddCompProperty(visit, "Passed", "yes");
  }
  return transport.TransportDoc();
}

void BM_DataCollectionLoad(benchmark::State& state) {
  const std::string text = Items(state.range(0));
  for (auto _ : state) {
    varnex::DataCollection collection;
    collection.Data(text);
    benchmark::DoNotOptimize(collection.Count());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_DataCollectionLoad)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void BM_ProviderReadAll(benchmark::State& state) {
  auto collection = std::make_shared<varnex::DataCollection>();
  collection->Data(Items(state.range(0)));
  varnex::DataCollectionProvider provider;
  provider.LoadData(collection, std::vector<Long>{8, 8, 8});
  for (auto _ : state) {
    const Long rows = provider.getRowCount();
    const Long columns = provider.getColumnCount();
    for (Long row = 1; row <= rows; ++row) {
      for (Long column = 1; column <= columns; ++column) benchmark::DoNotOptimize(provider.getVariant(row, column, 0));
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ProviderReadAll)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

}  // namespace
