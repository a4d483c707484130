#!/usr/bin/env bash
# Time and peak memory of the varnex tool's walking commands on a generated document of SIZE MB
# (default 50), next to what the library needs for the same document (document_memory).
#
#   bench/cli_memory.sh BUILD_DIR [SIZE]     (BUILD_DIR configured with -DVARNEX_BUILD_BENCH=ON)
set -euo pipefail
build=$1 size=${2:-50}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Sites with ten properties, a persistent attachment and a collection of eight visits (every
# 50th modified) fill the first half; a collection of entries directly under the root (every
# 100th new, every 70th modified) the second.
python3 - "$size" "$work/doc.xml" <<'PYTHON'
import sys
target, out = int(sys.argv[1]) * 1024 * 1024, open(sys.argv[2], "w")
def properties(i, modified):
    cells = []
    for p in range(10):
        if modified and p == 3:
            cells.append('<P3 xml:space="preserve" STATUS="MODIFIED" ORIGINAL="value 3">changed %d</P3>' % i)
        else:
            cells.append('<P%d xml:space="preserve">value %d</P%d>' % (p, p, p))
    return "<PROPERTIES>" + "".join(cells) + "</PROPERTIES>"
out.write('<TALVEN><DOMAIN><STATES CODE="ST"><ITEM><CODE>OPEN</CODE></ITEM></STATES></DOMAIN>'
          '<PROPERTY_DOMAINS><P1>STATES</P1></PROPERTY_DOMAINS>\n')
size = n = 0
while size < target // 2:
    site = ["<COMPONENT><SITE>", properties(n, False),
            '<ATTACHMENTS><NOTE persist="true"><TEXT>remark</TEXT></NOTE></ATTACHMENTS><COLLECTION><VISITS>']
    for _ in range(8):
        n += 1
        modified = n % 50 == 0
        site.append("<COMPONENT><VISIT%s>%s</VISIT></COMPONENT>" % (' STATUS="MODIFIED"' if modified else "",
                                                                  properties(n, modified)))
    site.append("</VISITS></COLLECTION></SITE></COMPONENT>\n")
    text = "".join(site)
    out.write(text)
    size += len(text)
out.write("<COLLECTION><LOG>")
while size < target:
    n += 1
    text = "<COMPONENT><ENTRY%s>%s</ENTRY></COMPONENT>\n" % (' STATUS="NEW"' if n % 100 == 0 else "",
                                                          properties(n, n % 70 == 0))
    out.write(text)
    size += len(text)
out.write("</LOG></COLLECTION></TALVEN>\n")
PYTHON
echo "document: $(stat -c %s "$work/doc.xml") bytes"
"$build/bench/document_memory" "$work/doc.xml"
for command in "tree" "changes" "changes --format json" "table" "table --format csv" "table --format json"; do
  /usr/bin/time -f "varnex $command: %e s, peak %M kB" "$build/bin/varnex" $command "$work/doc.xml" >/dev/null
done
