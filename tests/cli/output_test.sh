#!/usr/bin/env bash
# What the varnex tool's commands write: golden files for text, parsed checks for XML, JSON, CSV.
source "$(dirname "$0")/lib.sh"

# --- Text, against golden files ----------------------------------------------------------------
golden tree order-tree.txt 0 tree order.xml
golden tree-all order-tree-all.txt 0 tree --all order.xml
golden tree-colour declared-tree-colour.txt 0 tree --color=always declared.xml
golden changes order-changes.txt 0 changes order.xml
golden diff order-diff.txt 0 diff order.xml order-returned.xml
golden diff-added-removed order-delivery-diff.txt 0 diff order.xml delivery-note.xml
golden table-nested-collection order-lines-table.txt 0 table order.xml --collection /order/lines --bool fragile
golden table-first-collection order-notes-table.txt 0 table order.xml
golden table-chosen-fields order-lines-fields.txt 0 table order.xml --collection /ORDER/LINES --fields qty,item,missing
golden generate-short-indented order-short-indented.txt 0 generate --mode short --indent order.xml
golden validate-clean order-validate.txt 0 validate order.xml
golden validate-problems faulty-validate.txt 1 validate faulty.xml

# A declaration and a leading comment are left out: the document loads under its own root.
golden declared-loads declared-tree.txt 0 tree declared.xml
# Standard input and -o give the same text as a file and standard output.
checks=$((checks + 1))
"$varnex" tree - <order.xml | diff -q "$expected/order-tree.txt" - >/dev/null || fail stdin "tree - differs"
checks=$((checks + 1))
"$varnex" changes order.xml -o "$scratch/changes.txt" && diff -q "$expected/order-changes.txt" "$scratch/changes.txt" \
  >/dev/null || fail output-file "changes -o differs"

# --- JSON ----------------------------------------------------------------------------------------
parsed changes-json '
changes = json.loads(text)
assert [(c["path"], c["status"]) for c in changes] == [
    ("/ORDER", "MODIFIED"), ("/ORDER/LINES/LINE[2]", "NEW"), ("/ORDER/LINES/LINE[4]", "DELETED")], changes
assert changes[0]["properties"] == [
    {"name": "STATE", "status": "MODIFIED", "original": "OPEN", "value": "SHIPPED"}], changes[0]
' changes --format json order.xml
parsed changes-json-none 'assert json.loads(text) == []' changes --format json delivery-note.xml
parsed diff-json '
found = {(d["kind"], d["change"], d["path"]) for d in json.loads(text)}
assert ("property", "value", "/ORDER/STATE") in found, found
assert ("component", "status", "/ORDER") in found, found
assert ("property", "value", "/CUSTOMER/NAME") in found, found
' diff --format json order.xml order-returned.xml
parsed table-json '
rows = json.loads(text)
assert len(rows) == 4, rows
assert rows[1] == {"ITEM": "glass", "QTY": "1", "UNIT": "PC", "FRAGILE": True}, rows[1]
assert rows[3]["ITEM"] == "nut, \"hex\"" and rows[3]["FRAGILE"] is False, rows[3]
' table --format json --collection /ORDER/LINES --bool FRAGILE order.xml

# --- CSV (RFC 4180) ------------------------------------------------------------------------------
parsed table-csv '
assert text.endswith("\r\n") and "\n" not in text.replace("\r\n", ""), repr(text)
rows = list(csv.reader(io.StringIO(text, newline="")))
assert rows[0] == ["ITEM", "QTY", "UNIT", "FRAGILE"], rows[0]
assert rows[4] == ["nut, \"hex\"", "4", "PC", "no"], rows[4]
' table --format csv --collection /ORDER/LINES order.xml

# --- XML -----------------------------------------------------------------------------------------
parsed generate-full '
root = ET.fromstring(text)
assert root.tag == "TALVEN" and root.find("DOMAIN/UNITS") is not None
assert [w[0].tag for w in root if w.tag in ("COMPONENT", "COLLECTION")] == ["ORDER", "CUSTOMER", "NOTES"]
' generate order.xml
parsed generate-short '
root = ET.fromstring(text)
assert root.find("DOMAIN") is None and root.find("COMPONENT/CUSTOMER") is None, text
assert root.find("COMPONENT/ORDER/COLLECTION/LINES") is not None, text
' generate --mode short order.xml
parsed merge-adds-under-the-root '
root = ET.fromstring(text)
assert [w[0].tag for w in root if w.tag == "COMPONENT"] == ["ORDER", "CUSTOMER", "ORDER"], text
assert root.findall("COMPONENT/ORDER")[1].find("PROPERTIES/STATE").get("ORIGINAL") == "OPEN"
' merge order.xml declared.xml
parsed merge-under-a-parent '
lines = ET.fromstring(text).find("COMPONENT/ORDER/COLLECTION/LINES")
assert [w[0].tag for w in lines] == ["LINE"] * 4 + ["ORDER"], [w[0].tag for w in lines]
' merge --parent 2 order.xml declared.xml
parsed reset '
root = ET.fromstring(text)
order = root.find("COMPONENT/ORDER")
assert order.get("STATUS") is None and order.find("PROPERTIES/STATE").get("ORIGINAL") is None
assert [l.get("STATUS") for l in root.iterfind("COMPONENT/ORDER/COLLECTION/LINES/COMPONENT/LINE")] == [None, "NEW", None]
' reset order.xml

# update --check lets a returned document of the same shape through; values are copied by position.
"$varnex" generate --mode medium order.xml | sed -e 's/SHIPPED/INVOICED/' -e 's/>bolt</>bolts</' >"$scratch/returned.xml"
parsed update-checked '
root = ET.fromstring(text)
state = root.find("COMPONENT/ORDER/PROPERTIES/STATE")
assert state.text == "INVOICED" and state.get("ORIGINAL") == "OPEN", ET.tostring(state)
assert root.find("COMPONENT/ORDER/COLLECTION/LINES/COMPONENT/LINE/PROPERTIES/ITEM").text == "bolts"
' update --check order.xml "$scratch/returned.xml"

# --- Exit codes of the checks --------------------------------------------------------------------
checks=$((checks + 1))
"$varnex" changes --exit-code order.xml >/dev/null
[ $? -eq 1 ] || fail changes-exit-code "not 1 with changes"
checks=$((checks + 1))
"$varnex" changes --exit-code delivery-note.xml >/dev/null
[ $? -eq 0 ] || fail changes-exit-code-none "not 0 without changes"

finish
