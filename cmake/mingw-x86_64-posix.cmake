# Cross-compiles for 64-bit Windows with mingw-w64's posix thread model, whose standard library
# has the std::mutex that GoogleTest needs (the client suite of tests/com/client).
set(mingw_arch x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
set(CMAKE_C_COMPILER ${toolchain_prefix}-gcc-posix)
set(CMAKE_CXX_COMPILER ${toolchain_prefix}-g++-posix)
