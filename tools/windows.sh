# The Windows build, its tests under Wine, and the package. Sourced by ./run, not run.

ConfigureWindows() {
  Install "${buildPackages[@]}" "${windowsPackages[@]}"
  Step "configure windows" cmake --preset windows -DCMAKE_COMPILE_WARNING_AS_ERROR="$(WarningsAsErrors x86_64-w64-mingw32-g++-posix)"
}

# Everything that can be tested of it without Windows.
Windows() {
  ConfigureWindows
  Step "build windows" cmake --build build/windows
  Install "${winePackages[@]}"
  Step "wine prefix" tools/wine.sh --prepare
  Tests "tests under Wine" build/windows -LE long
  tools/wine.sh --stop
  PrintSteps windows
}

# Twice from the same build, because what is not the same twice cannot be compared by others either.
PackageTwice() {
  packaging/package.sh build/windows build/windows/again
  packaging/package.sh build/windows dist
  cmp build/windows/again/*.zip dist/*.zip
  cmp build/windows/again/*.exe dist/*.exe
}

Package() {
  ConfigureWindows
  Step "build windows" cmake --build build/windows --target vantle_effect vantle_program
  Install "${packagePackages[@]}" "${winePackages[@]}"
  rm -rf dist
  Step "package" PackageTwice
  Step "install and uninstall under Wine" tests/windows/installer_test.sh dist/*.exe dist/*.zip
  PrintSteps package
  ls -l dist
}
