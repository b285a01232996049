#!/usr/bin/env bash
# quietly.sh COMMAND [ARG...]: runs it and holds its output back; only when it fails, all of it goes to standard error.
# The exit code is the command's.
set -euo pipefail

log=$(mktemp)
trap 'rm -f "$log"' EXIT
code=0
"$@" </dev/null >"$log" 2>&1 || code=$?
if [ "$code" -ne 0 ]; then
  cat "$log" >&2
  echo "failed with exit code $code: $*" >&2
fi
exit "$code"
