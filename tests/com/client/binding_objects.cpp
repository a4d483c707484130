#include "binding_objects.hpp"

namespace varnex::client {

LongArray::LongArray(std::initializer_list<LONG> values)
    : array_(SafeArrayCreateVector(VT_I4, 0, static_cast<ULONG>(values.size()))) {
  LONG index = 0;
  for (LONG value : values) {
    SafeArrayPutElement(array_, &index, &value);
    ++index;
  }
}

ComPtr<_DataCollectionSource> SampleSource(std::initializer_list<LONG> types) {
  ComPtr<_DataCollectionSource> source = Create<_DataCollectionSource>(CLSID_DataCollectionSource);
  ComPtr<_DataCollection> collection = SampleCollection();
  if (!source || !collection) return {};
  _IDataCollection* data = collection.get();
  if (FAILED(source->putref_Data(&data))) return {};
  if (types.size() != 0) {
    LongArray array(types);
    if (FAILED(source->put_DataTypes(array.put()))) return {};
  }
  return source;
}

}  // namespace varnex::client
