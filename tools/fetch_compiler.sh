#!/usr/bin/env bash
# Fetches the Windows shader compiler, which the tests of the graphics path run under Wine: tools/fetch_compiler.sh [FOLDER]
# leaves d3dcompiler_47.dll in FOLDER, build/compiler by default. It comes in an npm package whose sums are committed;
# it is somebody else's program, for tests only: never committed, never shipped.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
recipe=$root/tests/windows/compiler
folder=${1:-$root/build/compiler}
library=$folder/d3dcompiler_47.dll

Fail() {
  printf 'fetch_compiler: the Windows shader compiler is not here, and %s\n' "$1" >&2
  printf 'fetch_compiler: without a network, --offline leaves out the tests that need it\n' >&2
  exit 1
}

# Already here, fetched by the same sums, and still what was fetched.
sums=$(sha256sum "$recipe/package-lock.json" | cut -d ' ' -f 1)
if [[ -f $library && -f $folder/fetched ]] && (cd "$folder" && grep -q "^# $sums$" fetched && sha256sum --quiet -c fetched); then
  echo "$library is here already"
  exit 0
fi
command -v npm >/dev/null || Fail "npm is missing to fetch it: install Node.js with npm"

# npm unpacks the whole package; the one file is taken out of it, under its name only when it is complete.
mkdir -p "$folder"
scratch=$(mktemp -d "$folder/fetching.XXXXXX")
trap 'rm -rf "$scratch"' EXIT
cp "$recipe/package.json" "$recipe/package-lock.json" "$recipe/.npmrc" "$scratch/"
(cd "$scratch" && npm ci --ignore-scripts --no-audit --no-fund --loglevel=error) ||
  Fail "npm could not fetch it (its messages stand above)"
packed=$scratch/node_modules/webgpu/dist/win32-x64/d3dcompiler_47.dll
[[ -f $packed ]] || Fail "the fetched package does not hold it"
rm -f "$folder/fetched"
mv "$packed" "$library"
(cd "$folder" && sha256sum "$(basename "$library")" && echo "# $sums") >"$scratch/fetched"
mv "$scratch/fetched" "$folder/fetched"
echo "fetched $library"
