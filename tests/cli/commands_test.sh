#!/usr/bin/env bash
# What the varnex tool's commands write and how they fail (exit 1 for failures, 2 for usage
# errors, one line on standard error). Runs the built binary in tests/cli/documents; set
# VARNEX_UPDATE_GOLDEN=1 to write the golden files in tests/cli/expected anew.
set -uo pipefail
varnex=$(realpath "$1")
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$here/documents" || exit 1
checks=0 failures=0

fail() { echo "FAILED $1: $2"; failures=$((failures + 1)); }  # fail CASE WHAT

run() {  # run CASE COMMAND...: sets out, err and status
  checks=$((checks + 1))
  "${@:2}" >"$scratch/out" 2>"$scratch/err"
  status=$? out=$(<"$scratch/out") err=$(<"$scratch/err")
}

# golden CASE FILE STATUS ARGS...: exits with STATUS, standard output equals expected/FILE,
# nothing on standard error.
golden() {
  local name=$1 file=$here/expected/$2 want=$3
  run "$name" "$varnex" "${@:4}"
  if [ "${VARNEX_UPDATE_GOLDEN:-}" = 1 ]; then printf '%s\n' "$out" >"$file"; fi
  [ "$status" -eq "$want" ] || fail "$name" "status $status, not $want ($err)"
  [ -z "$err" ] || fail "$name" "standard error: $err"
  diff -u "$file" <(printf '%s\n' "$out") >"$scratch/diff" || fail "$name" "$(head -30 "$scratch/diff")"
}

# fails CASE STATUS LINE ARGS...: exits with STATUS, standard error is exactly LINE, nothing on
# standard output.
fails() {
  local name=$1 want=$2 line=$3
  run "$name" "$varnex" "${@:4}"
  [ "$status" -eq "$want" ] || fail "$name" "status $status, not $want"
  [ "$err" = "$line" ] || fail "$name" "standard error: '$err', not '$line'"
  [ -z "$out" ] || fail "$name" "standard output: $(head -3 <<<"$out")"
}

# --- What the commands write ---------------------------------------------------------------------
golden tree order-tree.txt 0 tree order.xml
golden tree-all order-tree-all.txt 0 tree --all order.xml
golden tree-colour order-tree-colour.txt 0 tree --color=always order.xml
# A declaration and a leading comment are left out: the document loads under its own root.
golden declared-loads declared-tree.txt 0 tree declared.xml
golden stdin order-tree.txt 0 tree - <order.xml
golden changes order-changes.txt 1 changes --exit-code order.xml
golden changes-json order-changes.json 0 changes --format json order.xml
golden changes-json-none empty.txt 0 changes --format json --exit-code delivery-note.xml
golden diff order-diff.txt 0 diff order.xml order-returned.xml
golden diff-json order-diff.json 0 diff --format json order.xml order-returned.xml
golden diff-added-removed order-delivery-diff.txt 0 diff order.xml delivery-note.xml
golden table-nested-collection order-lines-table.txt 0 table order.xml --collection /order/lines --bool fragile
golden table-first-collection order-notes-table.txt 0 table order.xml
golden table-chosen-fields order-lines-fields.txt 0 table order.xml --collection /ORDER/LINES --fields qty,item,missing
golden table-json order-lines.json 0 table --format json --collection /ORDER/LINES --bool FRAGILE order.xml
golden table-csv order-lines.csv 0 table --format csv --collection /ORDER/LINES order.xml
golden generate-full order-full.xml 0 generate order.xml
golden generate-short-indented order-short-indented.txt 0 generate --mode short --indent order.xml
golden generate-medium order-medium.xml 0 generate --mode medium order.xml
golden merge-adds-under-the-root order-merged.xml 0 merge order.xml declared.xml
golden merge-under-a-parent order-merged-under-2.xml 0 merge --parent 2 order.xml declared.xml
golden reset order-reset.xml 0 reset order.xml
# update --check lets a returned document of the same shape through; values are copied by position.
"$varnex" generate --mode medium order.xml | sed -e 's/SHIPPED/INVOICED/' -e 's/>bolt</>bolts</' >"$scratch/returned.xml"
golden update-checked order-updated.xml 0 update --check order.xml "$scratch/returned.xml"
golden validate-clean order-validate.txt 0 validate order.xml
golden validate-problems faulty-validate.txt 1 validate faulty.xml
run output-file "$varnex" changes order.xml -o "$scratch/changes.txt"
cmp -s "$here/expected/order-changes.txt" "$scratch/changes.txt" || fail output-file "changes -o differs"
# "--" ends the options: a file whose name starts with a dash can be named.
cp order.xml "$scratch/-order.xml"
run double-dash bash -c 'cd "$1" && "$2" tree -- -order.xml' - "$scratch" "$varnex"
[ "$out" = "$(<"$here/expected/order-tree.txt")" ] || fail double-dash "differs"

# --- Bad input -----------------------------------------------------------------------------------
fails malformed 1 "varnex: malformed.xml:3:31: start-end tags mismatch" tree malformed.xml
fails malformed-incoming 1 "varnex: malformed.xml:3:31: start-end tags mismatch" merge order.xml malformed.xml
fails malformed-validated 1 "varnex: malformed.xml:3:31: start-end tags mismatch" validate malformed.xml
fails empty-input 1 "varnex: <stdin>:1:1: no document element found" tree - </dev/null
fails missing-file 1 "varnex: no-such.xml: No such file or directory" tree no-such.xml
fails directory 1 "varnex: ..: Is a directory" changes ..
fails unwritable-output 1 "varnex: $scratch/none/out.txt: No such file or directory" tree order.xml -o "$scratch/none/out.txt"
fails foreign-incoming 1 \
  "varnex: foreign.xml: the root <html> is not the document's root <TALVEN>: nothing would be taken from it" \
  merge order.xml foreign.xml
# A foreign root loads as an empty document: the tool says so instead of printing nothing.
fails foreign-root 0 "varnex: warning: foreign.xml: no components under the root <html>" tree foreign.xml
fails no-collection 1 "varnex: declared.xml: no collection under the root; name one with --collection" table declared.xml
fails not-a-collection 1 "varnex: /CUSTOMER is not a collection" table order.xml --collection /CUSTOMER
fails no-such-collection 1 "varnex: no component at /ORDER/ROWS" table order.xml --collection /ORDER/ROWS/ROW
fails update-check-refuses 1 \
  "varnex: delivery-note.xml does not fit order.xml: /ORDER: the returned document has component DELIVERY here; nothing was updated" \
  update --check order.xml delivery-note.xml
# Returned by hand without the attachments: the values would land on the wrong elements.
fails update-check-positions 1 \
  "varnex: order-returned.xml does not fit order.xml: /ORDER: 2 child elements in the returned document, 3 in the own; nothing was updated" \
  update --check order.xml order-returned.xml
fails automation-error 1 \
  "varnex: error 424 (Varnex): MergeDocument: MergeTransportIn: RecurseComponents: AddComponent: Invalid Handle" \
  merge --parent 99 order.xml declared.xml

# --- The command line ----------------------------------------------------------------------------
fails unknown-command 2 "varnex: unknown command 'frobnicate' (see 'varnex --help')" frobnicate order.xml
fails unknown-option 2 "varnex: The following argument was not expected: --colour (see 'varnex tree --help')" \
  tree --colour order.xml
fails unknown-tool-option 2 "varnex: unknown option '--verbose' (see 'varnex --help')" --verbose
fails no-command 2 "varnex: a command is required (see 'varnex --help')"
fails missing-argument 2 "varnex: INCOMING is required (see 'varnex merge --help')" merge order.xml
fails bad-mode 2 "varnex: --mode: sideways not in {full,short,medium} (see 'varnex generate --help')" \
  generate --mode sideways order.xml
fails standard-input-twice 2 "varnex: standard input (-) can be read only once (see 'varnex --help')" merge - - </dev/null
fails unknown-boolean-column 2 "varnex: --bool: there is no column PAID (see 'varnex --help')" table order.xml --bool PAID
run version "$varnex" --version
[ "$status" -eq 0 ] && grep -qxE 'varnex [0-9]+\.[0-9]+\.[0-9]+' <<<"$out" || fail version "'$out' ($status)"
for command in "" demo tree changes diff validate generate merge update reset table; do
  run "help-$command" "$varnex" $command --help
  [ "$status" -eq 0 ] && grep -q '^Usage: varnex' <<<"$out" || fail "help-$command" "status $status: $out"
done

echo "$checks checks, $failures failures"
[ "$failures" -eq 0 ]
