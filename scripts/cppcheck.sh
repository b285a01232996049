#!/usr/bin/env bash
# cppcheck.sh: runs cppcheck over src, what only Windows compiles too. What it was told to pass over stands in
# scripts/cppcheck_suppressions.txt.
set -euo pipefail

cd "$(dirname "$(readlink -f "$0")")/.."
scripts/install.sh cppcheck
mkdir -p build/cppcheck
cppcheck --enable=warning,performance,portability --std=c++20 --language=c++ --library=posix,windows -I src \
  --suppressions-list=scripts/cppcheck_suppressions.txt --error-exitcode=1 --quiet -j "$(nproc)" \
  --cppcheck-build-dir=build/cppcheck src
