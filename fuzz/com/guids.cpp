// The system's interface identifiers, defined once here from wine's headers (on Windows they come
// from uuid.lib).
#include <windows.h>
#include <initguid.h>
#include <cguid.h>
#include <oaidl.h>
#include <ocidl.h>
#include <msxml2.h>
extern const IID GUID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
