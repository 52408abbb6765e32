#!/usr/bin/env bash
# Installs, upgrades and uninstalls under Wine and looks at what is there afterwards; exit codes prove nothing.
# installer_test.sh SETUP.exe ZIP
set -euo pipefail
root=$(dirname "$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")")
setup=$(readlink -f "$1")
zip=$(readlink -f "$2")
scratch=$(mktemp -d)
export WINEPREFIX=$scratch/prefix
mkdir -p "$WINEPREFIX"
trap '"$root/tools/wine.sh" --stop >/dev/null 2>&1; rm -rf "$scratch"' EXIT

Fail() {
  printf 'installer_test: %s\n' "$1" >&2
  exit 1
}
Wine() { "$root/tools/wine.sh" "$@"; }
Registry() { Wine reg query "$1" /v "$2" 2>/dev/null | tr -d '\r' | grep REG_ || true; }

unzip -q "$zip" -d "$scratch/zip"
files=$(echo "$scratch"/zip/*)
(cd "$files" && sha256sum -c --quiet SHA256SUMS.txt) || Fail "the sums in the zip are wrong"
"$root/tools/wine.sh" --prepare
drive=$WINEPREFIX/drive_c

# The installer starts a copy of itself to uninstall; wait until what is to vanish has vanished.
WaitUntilGone() {
  local i
  for ((i = 0; i < 100; ++i)); do
    [[ -e $1 ]] || return 0
    sleep 0.2
  done
  Fail "$1 is still there"
}

CheckInstalled() {
  local folder=$1 file
  for file in Vantle.aex vantle.exe README.txt INSTALL.txt; do
    cmp "$files/$file" "$folder/$file" || Fail "$folder/$file is not the package's"
  done
  diff -r "$files/LICENSES" "$folder/LICENSES" || Fail "licences differ"
  [[ -f $folder/Uninstall-Vantle.exe ]] || Fail "no uninstaller in $folder"
}

# Without a host in the registry: the well-known folder.
Wine "$setup" /S
default="$drive/Program Files/Adobe/Common/Plug-ins/7.0/MediaCore/Vantle"
CheckInstalled "$default"
key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vantle'
[[ $(Registry "$key" DisplayVersion) == *1.2.0* ]] || Fail "the uninstall entry is missing"

# Upgrade in place: an older file is replaced, a user's own file stays.
printf old >"$default/Vantle.aex"
printf mine >"$default/preset.txt"
Wine "$setup" /S
CheckInstalled "$default"

# Uninstalling takes what was installed and nothing else.
Wine "$default/Uninstall-Vantle.exe" /S
WaitUntilGone "$default/Vantle.aex"
WaitUntilGone "$default/Uninstall-Vantle.exe"
[[ $(ls "$default") == preset.txt ]] || Fail "left behind: $(ls "$default")"
for ((i = 0; i < 50; ++i)); do
  [[ -n $(Registry "$key" DisplayVersion) ]] || break
  sleep 0.2
done
[[ -z $(Registry "$key" DisplayVersion) ]] || Fail "the uninstall entry is still there"
rm -r "$default"

# With a host in the registry: the folder that it names.
Wine reg add 'HKLM\Software\Adobe\After Effects\22.0' /v CommonPluginInstallPath /d 'C:\plug ins\common' /f >/dev/null
Wine "$setup" /S
CheckInstalled "$drive/plug ins/common/Vantle"
[[ ! -e $default ]] || Fail "installed twice"
Wine "$drive/plug ins/common/Vantle/vantle.exe" info >"$scratch/info.txt" || Fail "the installed program does not run"
grep -q 'Orlan_Vantle' "$scratch/info.txt" || Fail "the installed program does not find the installed effect"
Wine "$drive/plug ins/common/Vantle/Uninstall-Vantle.exe" /S
WaitUntilGone "$drive/plug ins/common/Vantle"
echo "installed, upgraded and uninstalled in both folders"
