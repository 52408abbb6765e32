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

# Every file of the system, but for what it notes down for itself.
Listing() { (cd "$drive" && find . -path ./users/*/Temp -prune -o -path ./windows/temp -prune -o -print | sort); }

Install() { Wine "$setup" /S "$@"; }

# Uninstalls, and waits until the uninstaller's copy of itself is through.
Uninstall() {
  Wine "$1/Uninstall-Vantle.exe" /S
  WaitUntilGone "$1/Vantle.aex"
  WaitUntilGone "$1/Uninstall-Vantle.exe"
  local i
  for ((i = 0; i < 100; ++i)); do
    Wine reg query "$key" >/dev/null 2>&1 || return 0
    sleep 0.2
  done
  Fail "the uninstall entry is still there"
}

key='HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Vantle'
hosts='HKLM\Software\Adobe\After Effects'
version=$(sed -nE 's/^project\(Vantle VERSION ([0-9.]+).*/\1/p' "$root/CMakeLists.txt")
Listing >"$scratch/before"

# Without a host in the registry: the well-known folder.
Install
default="$drive/Program Files/Adobe/Common/Plug-ins/7.0/MediaCore/Vantle"
CheckInstalled "$default"
[[ $(Registry "$key" DisplayVersion) == *"$version"* ]] || Fail "the uninstall entry is missing"
[[ $(Registry "$key" InstallLocation) == *'MediaCore\Vantle'* ]] || Fail "the uninstall entry names another folder"

# Upgrade in place: an older file is replaced, a user's own file stays.
printf old >"$default/Vantle.aex"
printf mine >"$default/preset.txt"
Install
CheckInstalled "$default"

# Uninstalling takes what was installed and nothing else.
Uninstall "$default"
[[ $(ls "$default") == preset.txt ]] || Fail "left behind: $(ls "$default")"
rm "$default/preset.txt"
rmdir "$default"

# With hosts in the registry: the folder that the newest of them names, not the one that is last by its letters, and not
# one that names none.
Wine reg add "$hosts\\9.0" /v CommonPluginInstallPath /d 'C:\plug ins\old' /f >/dev/null
Wine reg add "$hosts\\22.0" /v CommonPluginInstallPath /d 'C:\plug ins\common' /f >/dev/null
Wine reg add "$hosts\\23.1" /v Language /d en /f >/dev/null
Install
named="$drive/plug ins/common/Vantle"
CheckInstalled "$named"
[[ ! -e $default && ! -e "$drive/plug ins/old" ]] || Fail "installed elsewhere too"
Wine "$named/vantle.exe" info >"$scratch/info.txt" || Fail "the installed program does not run"
grep -q 'Orlan_Vantle' "$scratch/info.txt" || Fail "the installed program does not find the installed effect"

# Where it is installed already, it stays, whatever a newer host says.
Wine reg add "$hosts\\24.0" /v CommonPluginInstallPath /d 'C:\plug ins\newer' /f >/dev/null
Install
CheckInstalled "$named"
[[ ! -e "$drive/plug ins/newer" ]] || Fail "installed twice"
Uninstall "$named"
WaitUntilGone "$named"
Wine reg delete "$hosts" /f >/dev/null

# Into a folder of the user's choice (Wine would quote one with a space), and again without saying so. In a folder that
# others share it takes one of its own.
Install '/D=C:\effects'
Install
CheckInstalled "$drive/effects/Vantle"
[[ $(ls "$drive/effects") == Vantle ]] || Fail "files lie in the shared folder"

# Into another one: the former copy goes, or the host would find the effect twice.
Install '/D=C:\moved\Vantle'
CheckInstalled "$drive/moved/Vantle"
[[ ! -e $drive/effects/Vantle ]] || Fail "the former copy is still there"
rmdir "$drive/effects"
Install '/D=C:\effects\Vantle'
[[ ! -e $drive/moved/Vantle ]] || Fail "the former copy is still there"
rmdir "$drive/moved"

# While the program runs, and with it the effect, neither an upgrade nor a removal begins.
printf old >"$drive/effects/Vantle/README.txt"
Wine "$drive/effects/Vantle/vantle.exe" bench --rounds 100000 >/dev/null 2>&1 &
program=$!
for ((i = 0; i < 100; ++i)); do
  Wine tasklist 2>/dev/null | grep -qi vantle.exe && break
  sleep 0.2
done
sleep 2
status=0
Install || status=$?
[[ $status == 2 ]] || Fail "an upgrade of what is in use ended with code $status, not 2"
[[ $(<"$drive/effects/Vantle/README.txt") == old ]] || Fail "half an upgrade"
Wine "$drive/effects/Vantle/Uninstall-Vantle.exe" /S || true
sleep 3
for file in Vantle.aex vantle.exe Uninstall-Vantle.exe; do
  [[ -f $drive/effects/Vantle/$file ]] || Fail "half a removal: $file is gone"
done
Wine taskkill /im vantle.exe /f >/dev/null
wait "$program" || true
Install
CheckInstalled "$drive/effects/Vantle"
Uninstall "$drive/effects/Vantle"
WaitUntilGone "$drive/effects/Vantle"

# Nothing is left but the folders that hosts share.
rmdir "$drive/effects" "$drive/plug ins/common" "$drive/plug ins"
(cd "$drive/Program Files" && rmdir -p Adobe/Common/Plug-ins/7.0/MediaCore) || Fail "the shared folder is not empty"
Listing >"$scratch/after"
diff "$scratch/before" "$scratch/after" || Fail "the files above were left behind or taken away"
echo "installed, upgraded and uninstalled in all folders"
