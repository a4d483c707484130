// An item collection built directly from values, for testing the consumers of IDataCollection.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/errors.hpp"
#include "varnex/automation_error.hpp"
#include "varnex/data_collection.hpp"

namespace varnex::testing {

using Row = std::vector<std::pair<std::string, std::string>>;  // property name -> value

class FakeDataCollection : public IDataCollection {
 public:
  FakeDataCollection(std::vector<std::string> names, const std::vector<Row>& rows) : names_(std::move(names)) {
    for (const Row& row : rows) {
      auto item = std::make_shared<Collection>();
      for (const auto& [name, value] : row) item->Add(value, name);
      items_.Add(item);
    }
  }

  Long Count() override { return items_.Count(); }
  std::shared_ptr<Collection> Item(const Variant& index) override { return items_.Item(index).AsObjectOf<Collection>(); }
  Long CountPropertyNames() override { return static_cast<Long>(names_.size()); }
  std::string PropertyNames(Long index) override {
    if (index < 1 || static_cast<std::size_t>(index) > names_.size()) throw AutomationError::Runtime(errSubscriptOutOfRange);
    return names_[static_cast<std::size_t>(index - 1)];
  }

 private:
  std::vector<std::string> names_;
  Collection items_;
};

// People with a name, a code and an "active" flag.
inline std::shared_ptr<FakeDataCollection> People() {
  return std::make_shared<FakeDataCollection>(
      std::vector<std::string>{"Name", "Code", "Active"},
      std::vector<Row>{{{"Name", "Ann"}, {"Code", "A1"}, {"Active", "yes"}},
                       {{"Name", "Bob"}, {"Code", "B2"}, {"Active", "no"}},
                       {{"Name", "Cy"}, {"Code", "C3"}, {"Active", "TRUE"}}});
}

}  // namespace varnex::testing
