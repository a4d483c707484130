// The values of one item of a DataCollection: the core's ordered collection, 1-based, keys
// compared without regard to case. Item is the default member; For Each walks the values.
#include <varnex/varnex.hpp>

#include "com_object.hpp"
#include "parameters.hpp"
#include "varnex.h"
#include "variants.hpp"
#include "wrappers.hpp"

namespace varnex::server {
namespace {

bool IsOmitted(const VARIANT& value) { return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND; }

class RowObject final : public ComObject<_DataRow> {
 public:
  explicit RowObject(std::shared_ptr<Collection> row) : ComObject(row), row_(std::move(row)) {}

  HRESULT STDMETHODCALLTYPE Add(VARIANT* Item, VARIANT Key) override {
    return Call([&] {
      RequirePointer(Item);
      row_->Add(ToCoreVariant(*Item), IsOmitted(Key) ? std::string() : ToCoreVariant(Key).AsString());
    });
  }
  HRESULT STDMETHODCALLTYPE Item(VARIANT* Index, VARIANT* result) override {
    return Call([&] {
      RequirePointer(Index);
      RequirePointer(result);
      ToVariant(row_->Item(ToCoreVariant(*Index)), result);
    });
  }
  HRESULT STDMETHODCALLTYPE Count(LONG* result) override {
    return Call([&] { PutResult(result, row_->Count()); });
  }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT* Index) override {
    return Call([&] {
      RequirePointer(Index);
      row_->Remove(ToCoreVariant(*Index));
    });
  }
  HRESULT STDMETHODCALLTYPE _NewEnum(IUnknown** result) override {
    return Call([&] {
      RequirePointer(result);
      *result = NewEnumVariant(std::make_shared<Enumerator>(row_));
    });
  }

 private:
  std::shared_ptr<Collection> row_;
};

}  // namespace

IDispatch* NewRowObject(std::shared_ptr<Collection> row) {
  return static_cast<_DataRow*>(new RowObject(std::move(row)));
}

}  // namespace varnex::server
