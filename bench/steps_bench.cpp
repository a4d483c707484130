// A host's add-then-read steps on a document of N components: add a component with one property
// under a collection, then one read or edit through the indexes. Each step must cost the same
// however large the document, and stay near a bare pugixml loop doing the same appends and reads
// with its handles and children kept in arrays (the floor).
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include <pugixml.hpp>

#include "bench/sample_documents.hpp"
#include "varnex/transport.hpp"

namespace {

using varnex::Long;

enum class Read { Modify, Count, Child, Property, Status };

// N components loaded, and the collection of the last site that the steps add to.
struct Loaded {
  varnex::Transport transport;
  Long collection = 0;

  explicit Loaded(Long components) {
    transport.TransportDoc(varnex::bench::SampleText(components));
    const Long sites = transport.CountCompChildren(0);
    std::string name;
    varnex::enComponentStatus status;
    varnex::enComponentType type;
    const Long site = transport.GetCompChild(0, sites, name, status, type);
    collection = transport.GetCompChild(site, 1, name, status, type);
  }
};

void BM_AddThenRead(benchmark::State& state, Read read) {
  Loaded loaded(state.range(0));
  varnex::Transport& t = loaded.transport;
  std::string name, value, original;
  varnex::enComponentStatus status;
  varnex::enComponentType type;
  Long step = 0;
  for (auto _ : state) {
    const Long line = t.AddComponent(loaded.collection, "Line");
    t.AddCompProperty(line, "Amount", "1");
    switch (read) {
      case Read::Modify: benchmark::DoNotOptimize(t.ModifyCompProperty(line, 1, "2")); break;
      case Read::Count: benchmark::DoNotOptimize(t.CountCompChildren(loaded.collection)); break;
      case Read::Child:
        benchmark::DoNotOptimize(t.GetCompChild(loaded.collection, 9 + step, name, status, type));
        break;
      case Read::Property: benchmark::DoNotOptimize(t.GetCompProperty(line, 1, value, status, original)); break;
      case Read::Status: benchmark::DoNotOptimize(t.GetComponentStatus(line)); break;
    }
    ++step;
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK_CAPTURE(BM_AddThenRead, Modify, Read::Modify)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK_CAPTURE(BM_AddThenRead, Count, Read::Count)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK_CAPTURE(BM_AddThenRead, Child, Read::Child)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK_CAPTURE(BM_AddThenRead, Property, Read::Property)->Arg(10000)->Arg(100000)->Arg(1000000);
BENCHMARK_CAPTURE(BM_AddThenRead, Status, Read::Status)->Arg(10000)->Arg(100000)->Arg(1000000);

// The floors: the same appends on a bare pugixml tree of the same text, with the handles, the
// children and the properties kept in arrays.
struct BareSteps {
  pugi::xml_document document;
  pugi::xml_node collection;
  std::vector<pugi::xml_node> handles, children, properties;

  explicit BareSteps(Long components) {
    const std::string& text = varnex::bench::SampleText(components);
    document.load_buffer(text.data(), text.size());
    collection = document.document_element().last_child().first_child().last_child().first_child();
  }

  // A component with one property under the collection.
  void Add() {
    pugi::xml_node element = collection.append_child("COMPONENT").append_child("LINE");
    handles.push_back(element);
    children.push_back(element);
    pugi::xml_node property = element.append_child("PROPERTIES").append_child("AMOUNT");
    properties.push_back(property);
    property.append_attribute("xml:space").set_value("preserve");
    property.append_child(pugi::node_pcdata).set_value("1");
  }
};

// Then a read of the new property's text.
void BM_FloorAddThenRead(benchmark::State& state) {
  BareSteps bare(state.range(0));
  for (auto _ : state) {
    bare.Add();
    benchmark::DoNotOptimize(bare.children.back().first_child().first_child().child_value());
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_FloorAddThenRead)->Arg(10000)->Arg(100000)->Arg(1000000);

// Then the node writes that modifying a property of a NORMAL component makes: the component and
// the property marked "MODIFIED", the old text kept as "ORIGINAL", the new text.
void BM_FloorAddThenModify(benchmark::State& state) {
  BareSteps bare(state.range(0));
  for (auto _ : state) {
    bare.Add();
    pugi::xml_node property = bare.properties.back();
    bare.handles.back().append_attribute("STATUS").set_value("MODIFIED");
    property.append_attribute("ORIGINAL").set_value(property.child_value());
    property.append_attribute("STATUS").set_value("MODIFIED");
    property.first_child().set_value("2");
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_FloorAddThenModify)->Arg(10000)->Arg(100000)->Arg(1000000);

// Every child of a collection read in turn after a run of additions: constant time per read.
void BM_ReadSweepAfterAdditions(benchmark::State& state) {
  Loaded loaded(state.range(0));
  varnex::Transport& t = loaded.transport;
  std::string name;
  varnex::enComponentStatus status;
  varnex::enComponentType type;
  for (Long i = 0; i < 1000; ++i) t.AddComponent(loaded.collection, "Line");
  Long k = 0;
  for (auto _ : state) {
    const Long count = t.CountCompChildren(loaded.collection);
    benchmark::DoNotOptimize(t.GetCompChild(loaded.collection, 1 + k++ % count, name, status, type));
  }
  state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_ReadSweepAfterAdditions)->Arg(10000)->Arg(100000)->Arg(1000000);

}  // namespace
