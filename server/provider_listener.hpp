// A consumer's OLEDBSimpleProviderListener as the core's provider keeps it. One adapter stands
// for one listener object (compared by its IUnknown) for as long as the provider holds it, so
// that removal finds what was added.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include <varnex/oledb_simple_provider.hpp>

#include "com_ptr.hpp"
#include "data_binding_interfaces.hpp"

namespace varnex::server {

class ProviderListeners {
 public:
  // The adapter of listener (null for null): the one already handed out while it lives, else new.
  std::shared_ptr<varnex::OLEDBSimpleProviderListener> AdapterOf(::OLEDBSimpleProviderListener* listener);

 private:
  struct Known {
    IUnknown* identity;  // valid while the adapter lives, since the adapter holds the listener
    std::weak_ptr<varnex::OLEDBSimpleProviderListener> adapter;
  };
  std::vector<Known> known_;
};

}  // namespace varnex::server
