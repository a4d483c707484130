# Cross-compiles for 64-bit Windows with mingw-w64 (x86_64-w64-mingw32).
set(mingw_arch x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
