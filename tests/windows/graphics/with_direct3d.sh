#!/usr/bin/env bash
# Runs a Windows program under Wine, with a display, so that there is Direct3D, and with the fetched shader compiler in
# the system folder: with_direct3d.sh FOLDER PROGRAM.exe ARGUMENTS. FOLDER keeps the Wine prefix; one run at a time.
set -euo pipefail
root=$(dirname "$(dirname "$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")")")
compiler=$root/build/compiler/d3dcompiler_47.dll
export WINEPREFIX
WINEPREFIX=$(readlink -m "$1")
shift

Fail() {
  printf 'with_direct3d: %s\n' "$1" >&2
  exit 1
}
[[ -f $compiler ]] || Fail "the Windows shader compiler is not here; tools/fetch_compiler.sh fetches it"
command -v xvfb-run >/dev/null || Fail "xvfb-run is missing: install xvfb and xauth"

# The services that a prefix starts keep the display they began with, so they end with each run.
mkdir -p "$WINEPREFIX"
"$root/tools/wine.sh" --prepare
trap '"$root/tools/wine.sh" --stop' EXIT
cp "$compiler" "$WINEPREFIX/drive_c/windows/system32/"
xvfb-run -a -s '-screen 0 640x480x24 -nolisten tcp' "$root/tools/wine.sh" "$@"
