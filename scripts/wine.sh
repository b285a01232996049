#!/usr/bin/env bash
# wine.sh PROGRAM.exe [ARG...]: runs a Windows program, for VELMAR_WINE_SECONDS (600) at most; its exit code is the
# program's, or 124 where it took longer. Its Windows is one of our own, in build/wine, made on first use.
# wine.sh --end ends what is still running there; left alone it ends by itself after a minute.
set -euo pipefail

top=$(readlink -f "$(dirname "$(readlink -f "$0")")/..")
export WINEPREFIX=${VELMAR_WINEPREFIX:-$top/build/wine}
export WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
export LANG=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY LC_ALL LC_NUMERIC LC_CTYPE

server() { "$(command -v wineserver || echo /usr/lib/wine/wineserver)" "$@"; }

# The first program starts services that inherit what it writes to, and who reads that would wait for them: so that
# first program is one of ours. The server then stays for a minute after the last program.
start() {
  mkdir -p "$WINEPREFIX"
  exec 9>"$WINEPREFIX/.lock"
  flock 9
  if [ ! -f "$WINEPREFIX/.made" ]; then
    wineboot -i >/dev/null 2>&1 </dev/null 9>&-
    server -w 9>&-
    touch "$WINEPREFIX/.made"
  fi
  # Answers 2 where one runs already.
  if server -p60 >/dev/null 2>&1 </dev/null 9>&-; then
    wine cmd /c exit >/dev/null 2>&1 </dev/null 9>&-
  fi
  exec 9>&-
}

if [ "${1-}" = --end ]; then
  server -k || true
  exit 0
fi
start
exec timeout --kill-after=5 "${VELMAR_WINE_SECONDS:-600}" wine "$@"
