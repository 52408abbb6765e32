# The Debian packages that each task needs, and their installation. Sourced by ./run, not run.

buildPackages=(g++ cmake ninja-build pkg-config libgtest-dev libbenchmark-dev libopenimageio-dev libcairo2-dev
  nlohmann-json3-dev duktape-dev)
kernelPackages=(glslang-tools spirv-tools libvulkan-dev mesa-vulkan-drivers)
filmPackages=(ffmpeg)
clangPackages=(clang libomp-14-dev libclang-rt-dev)
lintPackages=(clang-tidy)
formatPackages=(clang-format)
windowsPackages=(g++-mingw-w64-x86-64-posix libstb-dev googletest)
winePackages=(wine64 xvfb xauth libgl1 libglx-mesa0 libgl1-mesa-dri)
packagePackages=(nsis zip unzip)
fetchPackages=(nodejs npm)

IsInstalled() { [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

# Everything runs without a question being asked; recommended packages stay out, they would triple the download.
AptGet() {
  local asRoot=()
  ((EUID == 0)) || asRoot=(sudo -n)
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -y -q \
    -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 "$@"
}

InstallNow() {
  AptGet update && AptGet install --no-install-recommends "$@"
}

# Install package...: installs those that are missing, in one step, and says nothing when all are there.
Install() {
  local package missing=()
  if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    printf 'run: no apt-get here; the following must be installed by other means: %s\n' "$*" >&2
    return
  fi
  for package in "$@"; do
    IsInstalled "$package" || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ((EUID != 0)) && ! sudo -n true 2>/dev/null; then
    Fail "these packages are missing and installing them needs root: apt-get install ${missing[*]}"
  fi
  Step "install ${#missing[@]} packages" InstallNow "${missing[@]}"
}
