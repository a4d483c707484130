# Cross-compiling for Windows with mingw-w64; mingw_arch (x86_64 or i686) is set by the
# toolchain file that includes this one.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${mingw_arch})
set(toolchain_prefix ${mingw_arch}-w64-mingw32)
set(CMAKE_C_COMPILER ${toolchain_prefix}-gcc)
set(CMAKE_CXX_COMPILER ${toolchain_prefix}-g++)
set(CMAKE_RC_COMPILER ${toolchain_prefix}-windres)
set(VARNEX_WIDL ${toolchain_prefix}-widl)
set(CMAKE_FIND_ROOT_PATH /usr/${toolchain_prefix})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
