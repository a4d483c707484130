// The DLL's own state: its module handle, and the count of live objects and server locks that
// DllCanUnloadNow answers from.
#pragma once

#include <string>

#include <windows.h>

namespace varnex::server {

HMODULE ModuleHandle();
// The full path of varnex.dll.
std::wstring ModulePath();

void ObjectCreated();
void ObjectDestroyed();
void LockServer(bool lock);

}  // namespace varnex::server
