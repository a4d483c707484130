// The edit loop of a grid: change a property, read it back, on random cells of a loaded
// document, against a bare pugixml loop touching the same nodes (the floor). The cost per call
// must not grow with the size of the document.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "bench/sample_documents.hpp"
#include "varnex/transport.hpp"

namespace {

using varnex::Long;

constexpr Long kProperties = 10;

// Random cells of the components that have properties (collections have none).
void BM_ModifyThenRead(benchmark::State& state) {
  const Long components = static_cast<Long>(state.range(0));
  varnex::Transport transport;
  transport.TransportDoc(varnex::bench::SampleText(components));
  std::vector<Long> rows;
  for (Long handle = 1; handle <= components; ++handle) {
    if (transport.CountCompProperties(handle) == kProperties) rows.push_back(handle);
  }
  std::mt19937 random(42);
  std::uniform_int_distribution<std::size_t> row(0, rows.size() - 1);
  std::uniform_int_distribution<Long> cell(1, kProperties);
  std::string value, original;
  varnex::enComponentStatus status;
  std::vector<std::string> edits;
  for (int i = 0; i < 64; ++i) edits.push_back(varnex::bench::Numbered("edit ", i));
  std::size_t counter = 0;
  for (auto _ : state) {
    const Long handle = rows[row(random)];
    const Long k = cell(random);
    transport.ModifyCompProperty(handle, k, edits[++counter % edits.size()]);
    benchmark::DoNotOptimize(transport.GetCompProperty(handle, k, value, status, original));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ModifyThenRead)->Arg(10000)->Arg(100000)->Arg(1000000);

// The floor: the property nodes of the same text in arrays; set a text, read it back.
void BM_FloorModifyThenRead(benchmark::State& state) {
  const Long components = static_cast<Long>(state.range(0));
  const std::string& text = varnex::bench::SampleText(components);
  pugi::xml_document document;
  document.load_buffer(text.data(), text.size());
  std::vector<pugi::xml_node> cells;
  for (const pugi::xpath_node& list : document.select_nodes("//PROPERTIES")) {
    for (pugi::xml_node property = list.node().first_child(); property; property = property.next_sibling()) {
      cells.push_back(property);
    }
  }
  std::mt19937 random(42);
  std::uniform_int_distribution<std::size_t> pick(0, cells.size() - 1);
  std::vector<std::string> edits;
  for (int i = 0; i < 64; ++i) edits.push_back(varnex::bench::Numbered("edit ", i));
  std::size_t counter = 0;
  for (auto _ : state) {
    pugi::xml_node cell = cells[pick(random)];
    benchmark::DoNotOptimize(cell.parent().parent().attribute("STATUS").value());
    benchmark::DoNotOptimize(cell.attribute("STATUS").value());
    cell.text().set(edits[++counter % edits.size()].c_str());
    benchmark::DoNotOptimize(std::string(cell.child_value()));
    benchmark::DoNotOptimize(std::string(cell.attribute("ORIGINAL").value()));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_FloorModifyThenRead)->Arg(10000)->Arg(100000)->Arg(1000000);

}  // namespace
