# Helpers of the varnex tool's tests: each runs the built binary in tests/cli/documents and
# counts what failed. Set VARNEX_UPDATE_GOLDEN=1 to write the golden files anew.
set -uo pipefail
varnex=$(realpath "$1")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
expected=$here/expected
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$here/documents" || exit 1
checks=0
declare -A failed=()

fail() {  # fail CASE WHAT
  echo "FAILED $1: $2"
  failed[$1]=1
}

run() {  # run COMMAND...: sets out, err and status; the output stays whole in $scratch/out
  "$@" >"$scratch/out" 2>"$scratch/err"
  status=$?
  out=$(<"$scratch/out")
  err=$(<"$scratch/err")
}

# golden CASE FILE STATUS ARGS...: standard output equals expected/FILE, with that exit status and
# nothing on standard error.
golden() {
  local name=$1 file=$2 want=$3
  shift 3
  checks=$((checks + 1))
  run "$varnex" "$@"
  if [ "${VARNEX_UPDATE_GOLDEN:-}" = 1 ]; then printf '%s\n' "$out" >"$expected/$file"; fi
  [ "$status" -eq "$want" ] || fail "$name" "status $status, not $want ($err)"
  [ -z "$err" ] || fail "$name" "standard error: $err"
  diff -u "$expected/$file" <(printf '%s\n' "$out") >"$scratch/diff" || fail "$name" "differs from $file:
$(head -30 "$scratch/diff")"
}

# fails CASE STATUS LINE ARGS...: exits with STATUS, standard error is exactly LINE, nothing on
# standard output.
fails() {
  local name=$1 want=$2 line=$3
  shift 3
  checks=$((checks + 1))
  run "$varnex" "$@"
  [ "$status" -eq "$want" ] || fail "$name" "status $status, not $want"
  [ "$err" = "$line" ] || fail "$name" "standard error: '$err', not '$line'"
  [ -z "$out" ] || fail "$name" "standard output: $(head -3 <<<"$out")"
}

# parsed CASE PYTHON ARGS...: exits 0 and the Python code, given the output as `text`, passes
# its assertions.
parsed() {
  local name=$1 code=$2
  shift 2
  checks=$((checks + 1))
  run "$varnex" "$@"
  [ "$status" -eq 0 ] || fail "$name" "status $status ($err)"
  python3 - "$scratch/out" >"$scratch/python" 2>&1 <<PYTHON || fail "$name" "$(tail -5 "$scratch/python")"
import csv, io, json, sys
import xml.etree.ElementTree as ET
text = open(sys.argv[1], encoding="utf-8", newline="").read()
$code
PYTHON
}

finish() {
  echo "$((checks - ${#failed[@]})) of $checks passed"
  [ "${#failed[@]}" -eq 0 ]
}
