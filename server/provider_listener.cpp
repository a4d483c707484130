#include "provider_listener.hpp"

#include <algorithm>

#include "errors.hpp"
#include "object_map.hpp"

namespace varnex::server {
namespace {

// Passes each notification on to the consumer's listener; a failure it answers is raised.
class ListenerAdapter final : public varnex::OLEDBSimpleProviderListener {
 public:
  explicit ListenerAdapter(::OLEDBSimpleProviderListener* listener)
      : listener_(ComPtr<::OLEDBSimpleProviderListener>::Share(listener)) {}

  void aboutToChangeCell(Long iRow, Long iColumn) override { ThrowIfFailed(listener_->aboutToChangeCell(iRow, iColumn)); }
  void cellChanged(Long iRow, Long iColumn) override { ThrowIfFailed(listener_->cellChanged(iRow, iColumn)); }
  void aboutToDeleteRows(Long iRow, Long cRows) override { ThrowIfFailed(listener_->aboutToDeleteRows(iRow, cRows)); }
  void deletedRows(Long iRow, Long cRows) override { ThrowIfFailed(listener_->deletedRows(iRow, cRows)); }
  void aboutToInsertRows(Long iRow, Long cRows) override { ThrowIfFailed(listener_->aboutToInsertRows(iRow, cRows)); }
  void insertedRows(Long iRow, Long cRows) override { ThrowIfFailed(listener_->insertedRows(iRow, cRows)); }
  void rowsAvailable(Long iRow, Long cRows) override { ThrowIfFailed(listener_->rowsAvailable(iRow, cRows)); }
  void transferComplete(Long xfer) override {
    ThrowIfFailed(listener_->transferComplete(static_cast<OSPXFER>(xfer)));
  }

 private:
  ComPtr<::OLEDBSimpleProviderListener> listener_;
};

}  // namespace

std::shared_ptr<varnex::OLEDBSimpleProviderListener> ProviderListeners::AdapterOf(
    ::OLEDBSimpleProviderListener* listener) {
  if (listener == nullptr) return nullptr;
  std::erase_if(known_, [](const Known& known) { return known.adapter.expired(); });
  IUnknown* identity = IdentityOf(listener);
  for (const Known& known : known_) {
    if (known.identity == identity) return known.adapter.lock();
  }
  auto adapter = std::make_shared<ListenerAdapter>(listener);
  known_.push_back({identity, adapter});
  return adapter;
}

}  // namespace varnex::server
