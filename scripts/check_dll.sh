#!/bin/sh
# check_dll.sh OBJDUMP FILE.dll OBJECT...: a component server exports the four functions of COM and nothing else, and
# needs no library that is not part of Windows. The objects and libraries that it is linked from have no thread-local
# object with a destructor: that would keep the DLL loaded for ever, and runs when the object's memory is gone.
set -eu

objdump=$1 dll=$2
shift 2

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
[ "$#" -gt 0 ] || { echo "no objects are named" >&2; exit 1; }
for object in "$@"; do
  symbols=$("$objdump" -t "$object")
  case $symbols in
    *__cxa_thread_atexit*) echo "$object has a thread-local object with a destructor" >&2; exit 1 ;;
  esac
done
echo "$dll:" $imports
