// Self-registration: per class the CLSID key (InprocServer32 with ThreadingModel Apartment,
// ProgID, TypeLib) and the ProgID key, plus the type library. Unregistering removes all of it.
#pragma once

#include <windows.h>

namespace varnex::server {

HRESULT RegisterServer() noexcept;
HRESULT UnregisterServer() noexcept;

}  // namespace varnex::server
