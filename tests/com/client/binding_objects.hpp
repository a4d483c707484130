// The data-binding objects as a bound control reaches them: a data source over the sample
// collection, and the OLE DB simple provider it hands out.
#pragma once

#include <initializer_list>

#include <simpdata.h>
#include <msdatsrc.h>

#include "server.hpp"

namespace varnex::client {

// A one-dimensional array of Longs, destroyed with the object.
class LongArray {
 public:
  explicit LongArray(std::initializer_list<LONG> values);
  ~LongArray() { SafeArrayDestroy(array_); }
  LongArray(const LongArray&) = delete;
  LongArray& operator=(const LongArray&) = delete;
  SAFEARRAY** put() { return &array_; }

 private:
  SAFEARRAY* array_;
};

// A DataCollectionSource over SampleCollection; types are set only when given.
ComPtr<_DataCollectionSource> SampleSource(std::initializer_list<LONG> types);

// The provider that source hands out for the interface iid, or an empty pointer.
template <typename Interface>
ComPtr<Interface> DataMemberOf(_DataCollectionSource* source, REFIID iid) {
  ComPtr<DataSource> data_source;
  source->QueryInterface(IID_DataSource, reinterpret_cast<void**>(data_source.put()));
  ComPtr<IUnknown> member;
  if (!data_source) return {};
  Bstr name;
  if (FAILED(data_source->getDataMember(name.get(), iid, member.put()))) return {};
  return member.template As<Interface>(iid);
}

}  // namespace varnex::client
