// The data-binding classes over arbitrary documents, field lists and type lists: loading a
// collection, presenting it through a source and a provider, reading and writing every cell.
#include "fuzz_support.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace varnex;
  fuzz::LimitOperations();
  FuzzedDataProvider input(data, size);
  const std::string fields = input.ConsumeRandomLengthString(64);
  std::vector<Long> types;
  for (int n = input.ConsumeIntegralInRange<int>(0, 6); n > 0; --n) {
    types.push_back(input.ConsumeBool() ? vbBoolean : input.ConsumeIntegral<Long>());
  }
  const bool typed = input.ConsumeBool();
  const std::string cell = input.ConsumeRandomLengthString(16);
  const std::string text = input.ConsumeRemainingBytesAsString();

  auto collection = std::make_shared<DataCollection>();
  fuzz::Try([&] { collection->Data(text); });
  Long rows = 0;
  fuzz::Try([&] { rows = collection->Count(); });
  for (Long row = -1; row <= rows + 1 && row <= 100; ++row) {
    fuzz::Try([&] {
      const std::shared_ptr<Collection> item = collection->Item(Variant(row));
      if (item) item->Count();
    });
  }
  Long names = 0;
  fuzz::Try([&] { names = collection->CountPropertyNames(); });
  for (Long index = -1; index <= names + 1 && index <= 100; ++index) {
    fuzz::Try([&] { collection->PropertyNames(index); });
  }
  fuzz::Try([&] {
    for (std::shared_ptr<Collection> item : *collection) item->Count();
  });

  DataCollectionSource source;
  source.Data(collection);
  source.Fields(fields);
  if (typed) source.DataTypes(types);
  std::shared_ptr<OLEDBSimpleProvider> provider;
  fuzz::Try([&] { provider = source.GetDataMember(); });
  if (!provider) return 0;
  Long provider_rows = 0, columns = 0;
  fuzz::Try([&] { provider_rows = provider->getRowCount(); });
  fuzz::Try([&] { columns = provider->getColumnCount(); });
  for (Long row = -1; row <= provider_rows + 1 && row <= 50; ++row) {
    for (Long column = -1; column <= columns + 1 && column <= 20; ++column) {
      fuzz::Try([&] { provider->getRWStatus(row, column); });
      fuzz::Try([&] { provider->getVariant(row, column, 0); });
      fuzz::Try([&] { provider->setVariant(row, column, 0, Variant(cell)); });
      fuzz::Try([&] { provider->getVariant(row, column, 1); });
    }
  }
  return 0;
}
