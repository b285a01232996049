#!/usr/bin/env bash
# docs/tour.sh VELMAR > docs/tour.md: a tour of the commands, each one run for its answer on drawings of the corpus.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
program=$(readlink -f "$1")
export LC_ALL=C
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp tests/corpus/acadsharp/sample_AC1015_ascii.dxf "$folder/plan.dxf"
cp tests/corpus/dxf-parser/api-cw750-details.dxf "$folder/details.dxf"
cp tests/corpus/tika/testDXF_ascii.dxf "$folder/wiring.dxf"
cp tests/corpus/ezdxf/POLI-ALL210_12.DXF "$folder/tilted.dxf"
cd "$folder"
velmar() { "$program" "$@"; }

# values HANDLE CODE... < DRAWING: these group codes of the entity, one after the other.
values() {
  awk -v handle="$1" -v codes=" ${*:2} " '
    { sub(/\r$/, "") }
    NR % 2 { code = $1 + 0; next }
    code == 0 { if (found) exit; kind = $0; held = "" }
    code == 5 && $0 == handle { found = 1; printf "%s %s:%s", kind, handle, held }
    code != 0 && index(codes, " " code " ") { pair = " " code "=\"" $0 "\""; if (found) printf "%s", pair; else held = held pair }
    END { print found ? "" : "no entity " handle }'
}

# part TITLE TEXT...
part() { printf '\n## %s\n\n' "$1"; shift; printf '%s\n' "$@"; }

# run COMMAND...: prints each with what it writes.
run() {
  printf '\n```\n'
  for command; do
    printf '$ %s\n' "$command"
    (eval "$command" 2>&1 || true) | sed -e '/^$/d' -e 's/[[:space:]]*$//' -e "s:$PWD/::g"
  done
  printf '```\n'
}

cat <<'END'
# A tour of the commands

Printed by `docs/tour.sh`, which runs every command below; nothing is edited by hand. `plan.dxf`, `details.dxf`,
`wiring.dxf` and `tilted.dxf` are `acadsharp/sample_AC1015_ascii.dxf`, `dxf-parser/api-cw750-details.dxf`,
`tika/testDXF_ascii.dxf` and `ezdxf/POLI-ALL210_12.DXF` of [tests/corpus](../tests/corpus/README.md). `-a` answers a question, `#3CF` picks the entity with that handle, `-o` saves
under another name. `values HANDLE CODE...` shows group codes of an entity: 1 text, 8 layer, 62 colour, 50 angle, 41 width
factor, 6 linetype, 48 linetype scale.
END

part Text 'A new text, coloured by how it begins: "Section" green, "Scale" white, anything else red.'
run "velmar call -d plan.dxf Text 'Section A-A' 100 50 90 2.5 Notes -o out.dxf" "values 146B 8 62 1 50 < out.dxf"
part RotateAllText 'Turns the texts of the picked layer that lie as the picked one, here by 15 degrees.'
run "velmar call -d plan.dxf -a '#75C' -a 15 RotateAllText -o out.dxf" "values 75C 1 50 < out.dxf"
part ReplaceT 'Replaces, or without a new text deletes, the texts that read exactly so; `ReplaceTL` on one layer.'
run "velmar call -d plan.dxf ReplaceT 'XData Str' 'XData String' -o out.dxf" "values 920 1 < out.dxf" \
  "velmar call -d plan.dxf ReplaceTL 'Hello this is a single line text' - Layer2 -o out.dxf" "values 756 1 < out.dxf"
part ReplaceInT 'Replaces inside texts, here in all of one layer; `1 0` is the first occurrence in each text only.'
run "velmar call -d wiring.dxf ReplaceInT R RES PARTTEXT 1 0 -o out.dxf"
part StrechText 'Makes a text longer than 30 units by the smallest width factor in hundredths.'
run "velmar call -d plan.dxf StrechText 3CF 30 -o out.dxf" "values 3CF 1 41 < out.dxf"
part ChangeLetterCase 'T for title case; Enter takes what was answered the last time.'
run "velmar call -d plan.dxf -a '#924' -a T ChangeLetterCase -o out.dxf" "values 924 1 < out.dxf"
part CountInText 'How many texts contain a word, and where.'
run "velmar call -d plan.dxf -a hello CountInText" "velmar call -d wiring.dxf -a v CountInText"
part Joint2Text 'Joins the second picked text to the first, with " / " between them, deletes the second, and asks for more.'
run "velmar call -d plan.dxf -a y -a ' / ' -a '#924' -a '#9A0' Joint2Text -o out.dxf" "values 924 1 < out.dxf" "values 9A0 1 < out.dxf"
part TextIndex 'Letters or numbers in front of picked texts.'
run "velmar call -d plan.dxf -a L -a '#924' -a '#9A0' TextIndex -o out.dxf" "values 924 1 < out.dxf" "values 9A0 1 < out.dxf"
part ReplaceTag 'One attribute in every insertion of the picked block, whatever its value was.'
run "velmar call -d plan.dxf -a '#704' -a attinfo -a '' -a 21 ReplaceTag -o out.dxf"
part Tolerencee 'Tolerance frames at picked points, until a pick is cancelled.'
run "velmar call -d plan.dxf -a '%%v0.1%%vA' -a 10,20 -a 10,40 Tolerencee -o out.dxf" "values 146A 10 20 1 < out.dxf"
part TextBar 'The call-off of a reinforcing bar.'
run "velmar call -d plan.dxf TextBar 100 50 16 \"'01'\" 200 20 T B1 -o out.dxf" "values 146B 8 1 < out.dxf"
part 'GetNOLayer, GetNType, GetNTypeLayer' 'Counts by layer, by kind, and by kind on the layers whose name contains a text.'
run "velmar call -d details.dxf GetNOLayer FG-Dim" "velmar call -d details.dxf GetNType PL" "velmar call -d details.dxf GetNTypeLayer L dtl"
part Mo2Lr 'Moves an entity to a layer if it is of that kind; the handle is a number.'
run "velmar call -d plan.dxf Mo2Lr 756 Layer1 T -o out.dxf" "values 756 8 < out.dxf"
part Replace 'Marks the middles of the polylines of a layer with circles.'
run "velmar call -d details.dxf Replace FG-Dtl-Glass 1 -o out.dxf" "velmar call -d out.dxf GetNOLayer Eng-STAGGERED"
part ReplaceLineByType 'A linetype scale of 0.5 for everything of the picked linetype; lines are drawn anew.'
run "velmar call -d plan.dxf -a '#756' -a 0.5 ReplaceLineByType -o out.dxf" "values 756 1 48 < out.dxf"
part Hatch_Layer 'Hatches every polyline of the picked layer, as HatchAligned does.'
run "velmar call -d details.dxf -a '#13B0' Hatch_Layer -o out.dxf" "velmar call -d out.dxf GetNTypeLayer H Eng-HATCH"
part Dim_Layer 'Width and height of every closed polyline of the picked layer; two points tell how far off.'
run "velmar call -d plan.dxf -a '#51D' -a 0,0 -a 10,0 Dim_Layer -o out.dxf" \
  "velmar call -d details.dxf -a '#114A' -a 0,0 -a 10,0 Dim_Layer -o out.dxf | grep -v Specify"
part ColLayerObj 'Colours one kind on one layer.'
run "velmar call -d details.dxf ColLayerObj 30 SHAPE PL -o out.dxf"
part 'ColDel, ColDelLayer' 'Delete one kind by colour, and on one layer.'
run "velmar call -d details.dxf ColDel 1 L -o out.dxf" "velmar call -d details.dxf ColDelLayer 0 FG-Dtl-Glass L -o out.dxf"
part ColorToLayer 'Moves one kind by colour to a layer, which it makes.'
run "velmar call -d plan.dxf ColorToLayer 3 Green L -o out.dxf" "velmar call -d out.dxf GetNOLayer Green"
part MLayer 'A layer, unless it is there.'
run "velmar call -d plan.dxf MLayer New 5 -o out.dxf" "velmar info out.dxf | grep New" "velmar call -d plan.dxf MLayer Layer1 5 -o out.dxf"
part NmLayer 'Renames a part of layer names (what is on the layers counts as modified); where the new name is there, moves' \
  'what is on the layer.'
run "velmar call -d details.dxf NmLayer dtl- Detail- -o out.dxf" "velmar info out.dxf | grep Detail-" \
  "velmar call -d plan.dxf NmLayer Layer2 Layer1 -o out.dxf"

part AlignDonut 'Centres the selected entities on the height where the picked line begins.'
run "velmar call -d plan.dxf -a '#9CD' -a '#99F' -a '#31F' -a '' AlignDonut -o out.dxf" "values 9CD 20 < out.dxf" \
  "values 99F 20 < out.dxf" "values 31F 20 < out.dxf"
part OMove 'Moves an entity along x, or with True along y; then the third is along x.'
run "velmar call -d plan.dxf OMove 31F 10 true 2.5 -o out.dxf" "values 31F 10 20 < plan.dxf" "values 31F 10 20 < out.dxf"
part Hatch 'A hatched rectangle: width, height, middle.'
run "velmar call -d plan.dxf Hatch 500 300 1000 0 -o out.dxf" "velmar call -d out.dxf GetNTypeLayer H Eng-HATCH"
part HatchAligned 'Hatches the inside of a closed entity; here the lines are far apart, 1000 units.'
run "velmar call -d plan.dxf HatchAligned 31F -o out.dxf" "values 146C 8 78 53 45 46 < out.dxf"
part Sc 'Scales an entity about a point.'
run "velmar call -d plan.dxf Sc 31F 2 0 0 -o out.dxf" "values 31F 10 20 40 < plan.dxf" "values 31F 10 20 40 < out.dxf"
part DimAL 'Dimensions the distance of two points: aligned, or with True by the linear dimension command of the command line.'
run "velmar call -d plan.dxf DimAL 0 0 30 40 -o out.dxf" "values 1469 8 2 42 < out.dxf" \
  "velmar call -d plan.dxf DimAL 0 0 30 0 - true 10 -o out.dxf"
part ScaleXY 'Scales lines, polylines, texts and aligned dimensions by one factor along x and another along y; the others stay.'
run "velmar call -d plan.dxf -a 2 -a 1 ScaleXY -o out.dxf" "velmar diff plan.dxf out.dxf | grep -e B28 -e 'LINE.*on Layer2'"
part Alignement 'Brings everything to elevation 0.'
run "velmar call -d tilted.dxf Alignement -o out.dxf" "velmar diff tilted.dxf out.dxf | sed -n '3p;\$p'"
part AlignDimension 'The dimension lines of selected dimensions go on the line of the first picked one.'
run "velmar call -d plan.dxf -a '#C96' -a '#CA4' -a '' AlignDimension -o out.dxf" "values C96 10 20 < out.dxf" "values CA4 10 20 < out.dxf"

part 'ExplodeBlock, DeleteBlock' 'Every insertion of the picked block in model space.'
run "velmar call -d details.dxf -a '#1469' ExplodeBlock -o out.dxf" "velmar call -d details.dxf -a '#1469' DeleteBlock -o out.dxf"
part 'ZoomLayouts, SaveAllDrawings, SaveAllCurrentDrawings' 'Several drawings are open, the first is active. The list is read again by LoadAllCurrentDrawings.'
run "cp details.dxf a.dxf; cp wiring.dxf b.dxf" "velmar call -d a.dxf -d b.dxf ZoomLayouts" "cmp a.dxf details.dxf" \
  "XDG_DATA_HOME=\$PWD velmar call -d a.dxf -d b.dxf SaveAllCurrentDrawings" "cat velmar/CurrentDrawings.Txt"
part 'Delete_OLE, Unload_Xref, Unload_TB' 'OLE frames, 200 a run; the first external reference whose name contains "ref" or "TB" is unloaded.'
run "velmar call -d plan.dxf Delete_OLE" "velmar call -d plan.dxf Unload_Xref" "velmar call -d plan.dxf Unload_TB"
part 'PurgeALLFolder, FolderDwgDxf, FolderDxfDwg, DeleteLayouts, DelFilNam' 'Every drawing of a folder. Files named .dwg that are DXF inside open;' \
  'native ones are refused: those are skipped by the first three and reported by DeleteLayouts.'
run "mkdir job; cp plan.dxf job/plan.dwg; cp details.dxf job/details.dwg; printf AC1015xxxxx > job/native.dwg" \
  "velmar call PurgeALLFolder job" "wc -c < plan.dxf; wc -c < job/plan.dwg; wc -c < job/native.dwg" \
  "velmar call FolderDwgDxf job; ls job" "velmar call DeleteLayouts job" \
  "cp job/plan.dwg job/plan_old.dwg; velmar call DelFilNam job _old DWG; ls job"
part SlowDown 'Waits, here half a second.'
run "velmar call SlowDown 500"
