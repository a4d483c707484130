#!/usr/bin/env bash
# How the varnex tool fails: exit 1 for failures, 2 for usage errors, one line on standard error.
source "$(dirname "$0")/lib.sh"

# --- Inputs --------------------------------------------------------------------------------------
fails malformed 1 "varnex: malformed.xml:3:31: start-end tags mismatch" tree malformed.xml
fails malformed-incoming 1 "varnex: malformed.xml:3:31: start-end tags mismatch" merge order.xml malformed.xml
fails malformed-returned 1 "varnex: malformed.xml:3:31: start-end tags mismatch" update order.xml malformed.xml
fails malformed-validated 1 "varnex: malformed.xml:3:31: start-end tags mismatch" validate malformed.xml
fails empty-input 1 "varnex: <stdin>:1:1: no document element found" tree - </dev/null
fails two-roots 1 "varnex: <stdin>:2:1: a second root element <TALVEN>" tree - <<<"<TALVEN></TALVEN>
<TALVEN/>"
fails missing-file 1 "varnex: no-such.xml: No such file or directory" tree no-such.xml
fails directory 1 "varnex: ..: Is a directory" changes ..
fails unwritable-output 1 "varnex: $scratch/none/out.txt: No such file or directory" tree order.xml -o "$scratch/none/out.txt"
fails foreign-incoming 1 \
  "varnex: foreign.xml: the root <html> is not the document's root <TALVEN>: nothing would be taken from it" \
  merge order.xml foreign.xml
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

# A foreign root loads as an empty document: the tool says so instead of printing nothing.
checks=$((checks + 1))
run "$varnex" tree foreign.xml
[ "$status" -eq 0 ] && [ -z "$out" ] && [ "$err" = "varnex: warning: foreign.xml: no components under the root <html>" ] ||
  fail foreign-root "status $status, output '$out', error '$err'"

# --- The command line ----------------------------------------------------------------------------
fails unknown-command 2 "varnex: unknown command 'frobnicate' (see 'varnex --help')" frobnicate order.xml
fails unknown-option 2 "varnex: The following argument was not expected: --colour (see 'varnex tree --help')" \
  tree --colour order.xml
fails unknown-tool-option 2 "varnex: unknown option '--verbose' (see 'varnex --help')" --verbose
fails no-command 2 "varnex: a command is required (see 'varnex --help')"
fails missing-argument 2 "varnex: INCOMING is required (see 'varnex merge --help')" merge order.xml
fails bad-mode 2 "varnex: --mode: sideways not in {full,short,medium} (see 'varnex generate --help')" \
  generate --mode sideways order.xml
fails bad-colour 2 "varnex: --color: rainbow not in {auto,always,never} (see 'varnex tree --help')" \
  tree --color=rainbow order.xml
fails standard-input-twice 2 "varnex: standard input (-) can be read only once (see 'varnex --help')" merge - - </dev/null
fails unknown-boolean-column 2 "varnex: --bool: there is no column PAID (see 'varnex --help')" table order.xml --bool PAID

checks=$((checks + 1))
run "$varnex" --version
[ "$status" -eq 0 ] && grep -qxE 'varnex [0-9]+\.[0-9]+\.[0-9]+' <<<"$out" || fail version "'$out' ($status)"
for command in "" demo tree changes diff validate generate merge update reset table; do
  checks=$((checks + 1))
  run "$varnex" $command --help
  [ "$status" -eq 0 ] && grep -q '^Usage: varnex' <<<"$out" || fail "help-$command" "status $status: $out"
done
# "--" ends the options: a file whose name starts with a dash can be named.
cp order.xml "$scratch/-order.xml"
checks=$((checks + 1))
(cd "$scratch" && "$varnex" tree -- -order.xml) | diff -q "$expected/order-tree.txt" - >/dev/null || fail double-dash "differs"

finish
