// The native stand-ins for the platform functions that the COM server calls, as the fuzz target
// builds them: OLE Automation (oleaut.cpp, coercion.cpp), type information read from the
// server's own IDL (type_library.cpp), and the few COM and system calls around them
// (platform.cpp).
#pragma once

#include <windows.h>
#include <oleauto.h>

namespace varnex::fuzz::com {

// Stops the run: the server used a platform function in a way that is undefined on Windows.
[[noreturn]] void Misuse(const char* what);

// The server's type library, made from the IDL text (loaded on first use).
ITypeLib* ServerTypeLibrary();

// Live objects and server locks as DllCanUnloadNow counts them.
long LiveObjects();

}  // namespace varnex::fuzz::com
