// The four exports of varnex.dll and the counts that tell whether it may be unloaded.
#include "module.hpp"

#include <atomic>

#include "classes.hpp"
#include "registration.hpp"

namespace varnex::server {
namespace {

HMODULE module_handle = nullptr;
std::atomic<long> live_objects{0};
std::atomic<long> server_locks{0};

}  // namespace

HMODULE ModuleHandle() { return module_handle; }

std::wstring ModulePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module_handle, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

void ObjectCreated() { ++live_objects; }
void ObjectDestroyed() { --live_objects; }
void LockServer(bool lock) { lock ? ++server_locks : --server_locks; }

}  // namespace varnex::server

using namespace varnex::server;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    module_handle = instance;
    DisableThreadLibraryCalls(instance);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object) {
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  for (const ClassEntry& entry : Classes()) {
    if (IsEqualCLSID(clsid, *entry.clsid)) return entry.get_class_object(iid, object);
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return live_objects == 0 && server_locks == 0 ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return RegisterServer(); }

STDAPI DllUnregisterServer() { return UnregisterServer(); }
