#!/usr/bin/env bash
# The varnex tool's commands on a small document: what they print and how they fail.
set -uo pipefail
varnex=$1 data=$(dirname "$0")
failures=0
expect() {  # expect NAME PATTERN COMMAND...: the output of the command matches the pattern
  local name=$1 pattern=$2
  shift 2
  local output
  output=$("$@" 2>&1)
  if ! grep -qE -- "$pattern" <<<"$output"; then
    echo "FAILED $name: no match for '$pattern' in:"; echo "$output" | head -20
    failures=$((failures + 1))
  fi
}
expect_status() {  # expect_status NAME STATUS COMMAND...
  local name=$1 status=$2
  shift 2
  "$@" >/dev/null 2>&1
  local actual=$?
  if [ "$actual" -ne "$status" ]; then echo "FAILED $name: status $actual, not $status"; failures=$((failures + 1)); fi
}

expect tree-shows-marks 'STATE = "OPEN" \[modified\] \(was "CLOSED"\)' "$varnex" tree "$data/site.xml"
expect tree-shows-collections '^collection VISITS #3$' "$varnex" tree "$data/site.xml"
expect short-drops-unchanged '^<TALVEN><COMPONENT><SITE STATUS="MODIFIED">.*<VISIT STATUS="NEW">.*</TALVEN>$' \
  "$varnex" generate short "$data/site.xml"
expect_status short-has-no-depot 1 bash -c "'$varnex' generate short '$data/site.xml' | grep -q DEPOT"
expect medium-keeps-all-but-domains '^<TALVEN><COMPONENT><SITE.*<DEPOT>.*</TALVEN>$' "$varnex" generate medium "$data/site.xml"
expect full-from-stdin '<DOMAIN><STATES>' bash -c "'$varnex' generate full - < '$data/site.xml'"
expect merge-adds-twice '(<DEPOT>.*){2}' "$varnex" merge "$data/site.xml" "$data/site.xml"
expect update-copies-by-position 'OPEN_AGAIN' bash -c \
  "'$varnex' update '$data/site.xml' <(sed 's/>OPEN</>OPEN_AGAIN</' '$data/site.xml')"
expect table-of-first-collection '^2026-05-14 \| no' "$varnex" table "$data/site.xml"
expect bad-document-is-reported 'error 91 \(Varnex\): GetTransportDoc: ' bash -c "echo '<A>' | '$varnex' tree -"
expect_status bad-document-status 1 bash -c "echo '<A>' | '$varnex' tree -"
expect_status unknown-mode 2 "$varnex" generate sideways "$data/site.xml"
expect_status missing-file 1 "$varnex" tree "$data/no-such-file.xml"
expect_status wrong-argument-count 2 "$varnex" merge "$data/site.xml"
expect_status unknown-command 2 "$varnex" frobnicate

checks=15
echo "$((checks - failures)) passed, $failures failed"
[ "$failures" -eq 0 ]
