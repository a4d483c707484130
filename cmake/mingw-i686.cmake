# Cross-compiles for 32-bit Windows with mingw-w64 (i686-w64-mingw32).
set(mingw_arch i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
