#!/usr/bin/env bash
# package.sh: makes build/package/velmar-VERSION-windows.zip, all that a drafter needs: the component and the programs
# in both bitnesses, the files for macros, registration, the install page, and the licences.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
version=$(sed -n 's/.*velmar_version = "\([0-9.]*\)".*/\1/p' src/embedded/host.h)
name=velmar-$version-windows
folder=build/package/$name

scripts/install_windows.sh
rm -rf "$folder"
mkdir -p "$folder/glue" "$folder/licences"

declare -A architecture=([32]=i686 [64]=x86_64)
for bits in 32 64; do
  build=build/windows$bits
  scripts/build.sh windows$bits VelmarMenu velmar
  if cmake --build "$build" --target help | grep -q '^velmar-host: phony'; then
    scripts/build.sh windows$bits velmar-host
  fi
  mkdir "$folder/win$bits"
  cp "$build/src/com/VelmarMenu.dll" "$folder/win$bits/"
  find "$build/src" -name 'velmar*.exe' -exec cp {} "$folder/win$bits/" \;
  "${architecture[$bits]}-w64-mingw32-strip" "$folder/win$bits/"*.exe
done

texts=build/windows64/src/com/texts/velmar_texts
"$texts" autolisp "$folder/glue/velmar.lsp"
"$texts" vba "$folder/glue/velmar.bas"

cp packaging/register.cmd packaging/unregister.cmd "$folder/"
cp docs/install-windows.md "$folder/install.md"
cp LICENSE "$folder/licences/velmar.txt"
cp /usr/share/doc/libcli11-dev/copyright "$folder/licences/CLI11.txt"
cp /usr/share/doc/nlohmann-json3-dev/copyright "$folder/licences/nlohmann-json.txt"
cp /usr/share/doc/gcc-mingw-w64-base/copyright "$folder/licences/gcc-runtime.txt"
cp /usr/share/doc/mingw-w64-common/copyright "$folder/licences/mingw-w64-runtime.txt"

(cd build/package && rm -f "$name.zip" && cmake -E tar cf "$name.zip" --format=zip "$name")
echo "build/package/$name.zip"
