#!/usr/bin/env bash
# coverage.sh [TEST-PATTERN]: runs the tests (those of CTest whose names match, all by default) with every line counted,
# and writes build/coverage/lines.txt (a row a file), build/coverage/not_run.txt (the lines of src that no test ran) and
# build/coverage/html/index.html. Takes some ten minutes.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/install.sh gcovr googletest
scripts/build.sh coverage
find build/coverage -name '*.gcda' -delete
ctest --preset coverage -j "$(nproc)" ${1:+-R "$1"}

gcovr --root . --filter src/ --exclude-throw-branches --gcov-ignore-parse-errors --json build/coverage/lines.json build/coverage
report=(gcovr --root . --add-tracefile build/coverage/lines.json)
mkdir -p build/coverage/html
"${report[@]}" --html-details build/coverage/html/index.html --txt build/coverage/lines.txt
python3 - build/coverage/lines.json >build/coverage/not_run.txt <<'END'
import json, sys

for file in json.load(open(sys.argv[1]))["files"]:
    source = open(file["file"]).read().split("\n")
    for line in file["lines"]:
        if line["count"] == 0 and not line["gcovr/noncode"]:
            print("%s:%d: %s" % (file["file"], line["line_number"], source[line["line_number"] - 1].strip()))
END
tail -n 3 build/coverage/lines.txt
wc -l build/coverage/not_run.txt
