// mingw-w64's simpdata.h, read with wine's headers: its two mingw-only type names spelled natively.
#include <windows.h>
#ifndef __LONG32
#define __LONG32 int
#endif
#ifndef VARNEX_WINBOOL
#define VARNEX_WINBOOL
typedef BOOL WINBOOL;
#endif
#include_next <simpdata.h>
