#!/usr/bin/env bash
# Installs the library into a scratch prefix and builds an outside project against it, once through
# the CMake package and once through pkg-config.
set -euo pipefail
source_dir=$1 build_dir=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build_dir" --prefix "$work/prefix" >/dev/null
flags=()
if [ -n "${SANITIZE_FLAGS:-}" ]; then flags=(-DCMAKE_CXX_FLAGS="$SANITIZE_FLAGS" -DCMAKE_EXE_LINKER_FLAGS="$SANITIZE_FLAGS"); fi
cmake -S "$source_dir/tests/install/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$work/prefix" "${flags[@]}" >/dev/null
cmake --build "$work/consumer" >/dev/null
"$work/consumer/app" | grep -q "<COMPONENT><SITE/></COMPONENT>"
PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig:$work/prefix/lib/x86_64-linux-gnu/pkgconfig" \
  g++ ${SANITIZE_FLAGS:-} "$source_dir/tests/install/consumer/main.cpp" -o "$work/app-pc" $(PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig:$work/prefix/lib/x86_64-linux-gnu/pkgconfig" pkg-config --cflags --libs varnex)
"$work/app-pc" >/dev/null
echo "installed package builds and runs"
