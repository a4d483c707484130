// Two type names that mingw-w64's own headers use and wine's do not declare, spelled natively
// for the data-binding headers (simpdata.h, msdatsrc.h) read from mingw-w64.
#pragma once
#include <windows.h>
#ifndef __LONG32
#define __LONG32 int
#endif
typedef BOOL WINBOOL;
