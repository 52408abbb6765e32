#!/usr/bin/env bash
# Runs a Windows program under Wine, with a prefix of its own in the build folder: tools/wine.sh PROGRAM.exe ARGUMENTS
# Also: --prepare makes the prefix (before tests start, it takes seconds), --stop ends Wine's services.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
export WINEPREFIX=${WINEPREFIX:-$root/build/wine}
export WINEDEBUG=${WINEDEBUG:--all} WINEARCH=win64
# No helper windows, no desktop entries, no download of run-time packages, and no debugger: it would end a program whose
# second thread crashes with exit code 0. WINE_WITHOUT=LIBRARY plays a system that lacks a library.
overrides="mscoree,mshtml=;winemenubuilder.exe=;winedbg.exe=;d3d11,d3dcompiler_47=n,b${WINE_WITHOUT:+;$WINE_WITHOUT=}"
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-$overrides}

wine=$(command -v wine64 || command -v wine || true)
[[ -n $wine ]] || wine=/usr/lib/wine/wine64
server=/usr/lib/wine/wineserver
[[ -x $server ]] || server=$(command -v wineserver)

case "${1:-}" in
  --prepare)
    [[ -f $WINEPREFIX/system.reg ]] || { mkdir -p "$WINEPREFIX" && "$wine" wineboot -i >"$WINEPREFIX/boot.log" 2>&1; }
    "$server" -w || true
    exit 0
    ;;
  --stop)
    "$server" -k || true
    exit 0
    ;;
esac

# Wine's services outlive the program and would hold a caller's pipe open; a file does not mind.
output=$(mktemp)
trap 'rm -f "$output" "$output.err"' EXIT
status=0
"$wine" "$@" >"$output" 2>"$output.err" || status=$?
cat "$output"
cat "$output.err" >&2
exit "$status"
