#!/usr/bin/env bash
# Makes the package: packaging/package.sh BUILD_FOLDER OUTPUT_FOLDER writes Vantle-VERSION-win64.zip and
# Vantle-VERSION-win64-setup.exe from a Windows build. The same files give the same bytes.
set -euo pipefail
root=$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")
export LC_ALL=C TZ=UTC
build=$(readlink -f "$1")
mkdir -p "$2"
output=$(readlink -f "$2")
version=$(sed -nE 's/^project\(Vantle VERSION ([0-9.]+).*/\1/p' "$root/CMakeLists.txt")
name=Vantle-$version-win64
# The time that all files carry: the last change's, unless the caller says another.
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct 2>/dev/null || echo 1700000000)}
export SOURCE_DATE_EPOCH
stage=$build/package/$name

Refuse() {
  printf 'package: %s\n' "$1" >&2
  exit 1
}

# Whose code is in the two files, and where Debian keeps its licence: name, file.
licences=(
  "GCC runtime libraries (libgcc, libstdc++, libgomp)" gcc-mingw-w64-base
  "MinGW-w64 runtime and winpthreads" mingw-w64-x86-64-dev
  "Duktape" duktape-dev
  "nlohmann json" nlohmann-json3-dev
  "stb" libstb-dev
  "NSIS (the installer)" nsis-common
)
commonLicences=(GPL-2 GPL-3 LGPL-2 LGPL-2.1 CC0-1.0)

licenceRoot=${LICENCE_ROOT:-/usr/share}

# Where a licence says that its text stands among Debian's common ones, that text comes along; users have no Debian.
CopyLicences() {
  local i file common
  mkdir -p "$stage/LICENSES"
  for ((i = 0; i < ${#licences[@]}; i += 2)); do
    file=$licenceRoot/doc/${licences[i + 1]}/copyright
    [[ -s $file ]] || Refuse "the licence of ${licences[i]} is missing: $file"
    { printf '%s\n\n' "${licences[i]}" && cat "$file"; } >"$stage/LICENSES/${licences[i + 1]}.txt"
  done
  for common in "${commonLicences[@]}"; do
    file=$licenceRoot/common-licenses/$common
    [[ -s $file ]] || Refuse "the licence $common is missing: $file"
    cp "$file" "$stage/LICENSES/$common.txt"
  done
  grep -q 'GCC RUNTIME LIBRARY EXCEPTION' "$stage/LICENSES/gcc-mingw-w64-base.txt" ||
    Refuse "the compiler's licence lacks the exception for its runtime libraries"
}

# Paths of this machine tell users nothing and make two builds differ.
CheckPaths() {
  local file=$1 status=0 found folder folders='/usr/(include|share|lib|src)|/build/'
  # A folder's name may hold anything, also what means something in a pattern. A home of / is in every address.
  for folder in "$root" "$build" "${HOME:-}/"; do
    [[ $folder == / || $folder == // ]] || folders+="|$(sed 's/[][\\.*^$+?(){}|]/\\&/g' <<<"$folder")"
  done
  found=$(grep -aoE "($folders)[[:print:]]*" "$file") || status=$?
  ((status <= 1)) || Refuse "$(basename "$file") cannot be searched for paths of this machine"
  [[ -z $found ]] || Refuse "$(basename "$file") holds paths of this machine: $(head -n 5 <<<"$found")"
}

CheckTables() {
  local tables
  if ! tables=$(cmake -DOBJDUMP="$(command -v x86_64-w64-mingw32-objdump)" -DLIBRARY="$build/bin/Vantle.aex" \
    -DPROGRAM="$build/bin/vantle.exe" -P "$root/tests/windows/check_tables.cmake" 2>&1); then
    printf '%s\n' "$tables" >&2
    Refuse "$(sed -n 's/^refused: //p' <<<"$tables")"
  fi
  printf '%s\n' "$tables"
}

[[ -f $build/bin/Vantle.aex && -f $build/bin/vantle.exe ]] || Refuse "$build holds no Windows build"
CheckTables
rm -rf "$build/package"
mkdir -p "$stage"
for file in Vantle.aex vantle.exe; do
  CheckPaths "$build/bin/$file"
  cp "$build/bin/$file" "$stage/"
done
# Windows' own editor wants its own ends of lines.
sed 's/$/\r/' "$root/packaging/install-guide.txt" >"$stage/INSTALL.txt"
sed 's/$/\r/' "$root/packaging/readme.txt" >"$stage/README.txt"
CopyLicences
(cd "$stage" && find . -type f ! -name SHA256SUMS.txt -printf '%P\n' | sort | xargs -d '\n' sha256sum >SHA256SUMS.txt)
find "$stage" -type d -exec chmod 755 {} + , -type f -exec chmod 644 {} +
find "$build/package" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +

rm -f "$output/$name.zip" "$output/$name-setup.exe"
(cd "$build/package" && find "$name" -type f | sort | zip -q -X -9 "$output/$name.zip" -@)
makensis -V2 -NOCD -DVERSION="$version" -DFILES="$stage" -DOUTPUT="$output/$name-setup.exe" "$root/packaging/vantle.nsi"
(cd "$output" && sha256sum "$name.zip" "$name-setup.exe")
