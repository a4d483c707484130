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
out=$("$work/consumer/app")
grep -q '<SITE STATUS="NEW">' <<<"$out"
grep -q '^SITE csNew$' <<<"$out"
grep -q '^    VISIT csNormal$' <<<"$out"
grep -q '^  NAME=North$' <<<"$out"
export PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig:$work/prefix/lib/x86_64-linux-gnu/pkgconfig"
g++ ${SANITIZE_FLAGS:-} "$source_dir/tests/install/consumer/main.cpp" -o "$work/app-pc" $(pkg-config --cflags --libs varnex)
"$work/app-pc" >/dev/null
# A Boolean variant is only made on purpose: true and vbTrue given to Variant do not compile.
pc_flags=$(pkg-config --cflags varnex)
for value in true varnex::vbTrue; do
  if g++ -std=c++20 -fsyntax-only $pc_flags -DVALUE="$value" "$source_dir/tests/install/consumer/boolean_variant.cpp" 2>/dev/null; then
    echo "Variant v = $value; compiled" >&2
    exit 1
  fi
done
g++ -std=c++20 -fsyntax-only $pc_flags -DVALUE="varnex::Variant::FromBoolean(varnex::vbTrue)" \
  "$source_dir/tests/install/consumer/boolean_variant.cpp"
echo "installed package builds and runs"
