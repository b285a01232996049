#!/bin/sh
# check_dll.sh OBJDUMP FILE.dll: a component server exports the four functions of COM and nothing else, and needs no
# library that is not part of Windows.
set -eu

objdump=$1 dll=$2

exports=$("$objdump" -p "$dll" | awk '/^\[Ordinal\/Name Pointer\] Table/ { on = 1; next } on && NF < 2 { exit } on { print $NF }' |
  sort | tr '\n' ' ')
expected='DllCanUnloadNow DllGetClassObject DllRegisterServer DllUnregisterServer '
[ "$exports" = "$expected" ] || { echo "$dll exports $exports, expected $expected" >&2; exit 1; }

imports=$("$objdump" -p "$dll" | awk '/DLL Name:/ { print tolower($3) }' | sort -u)
[ -n "$imports" ] || { echo "$dll: no imports found" >&2; exit 1; }
for import in $imports; do
  case $import in
    advapi32.dll|gdi32.dll|kernel32.dll|msvcrt.dll|ole32.dll|oleaut32.dll|shell32.dll|shlwapi.dll|user32.dll) ;;
    *) echo "$dll needs $import, which is not part of Windows" >&2; exit 1 ;;
  esac
done
echo "$dll:" $imports
