#!/bin/sh
# Checks the direction of every #include below src/ (or the folder given) against the list here: a folder may include
# itself and what stands after its colon. windows.h is for src/com and for files named *_windows.cpp.
set -eu

arrows='
basic:
host: basic
component: host basic
calc text geometry layers measure batch: component host basic
system: component basic
drawing:
embedded: host drawing basic
render: drawing
com: component system host embedded basic
cli: component com system embedded render host drawing basic
'

cd "${1:-$(dirname "$0")/../src}"
find . \( -name '*.h' -o -name '*.cpp' \) -exec grep -H '^[[:space:]]*#[[:space:]]*include' {} + |
  awk -v arrows="$arrows" '
    function wrong(why) { print "src" file ": " why > "/dev/stderr"; faults++ }

    BEGIN {
      rows = split(arrows, row, "\n")
      for (r = 1; r <= rows; r++) {
        if (split(row[r], side, ":") != 2) continue
        froms = split(side[1], from, " ")
        tos = split(side[2], to, " ")
        for (f = 1; f <= froms; f++) {
          allowed[from[f], from[f]] = folder_known[from[f]] = 1
          for (t = 1; t <= tos; t++) allowed[from[f], to[t]] = 1
        }
      }
    }

    {
      colon = index($0, ":")
      file = substr($0, 2, colon - 2)           # "./cli/main.cpp" becomes "/cli/main.cpp"
      line = substr($0, colon + 1)
      split(file, part, "/")
      from_folder = part[2]
      quoted = line ~ /include[ \t]*"/
      name = line
      sub(/^[^"<]*["<]/, "", name)
      sub(/[">].*/, "", name)
      to_folder = name
      sub(/\/.*/, "", to_folder)
      checked++

      if (!(from_folder in folder_known))
        wrong("the folder " from_folder " stands in no line of the list")
      else if (tolower(name) == "windows.h") {
        if (from_folder != "com" && file !~ /_windows\.cpp$/) wrong("includes windows.h")
      } else if (to_folder in folder_known) {
        if (!((from_folder, to_folder) in allowed)) wrong("includes " name)
      } else if (quoted)
        wrong("includes \"" name "\", which is not written from src/")
    }

    END {
      if (checked == 0) wrong("no #include found: nothing was checked")
      if (faults) exit 1
      print checked " includes"
    }'
