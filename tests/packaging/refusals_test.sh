#!/usr/bin/env bash
# What must not reach users is refused, each with a message that names it: refusals_test.sh BUILD_FOLDER
# Works on copies of the built files in which one thing is spoiled; all replacements keep the files' lengths.
set -euo pipefail
root=$(dirname "$(dirname "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")")")
build=$(readlink -f "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0

# Spoil FILE FROM TO: the text must be there, or nothing would be tried.
Spoil() {
  grep -qaF "$2" "$scratch/spoilt/bin/$1" || { echo "$1 does not hold $2"; exit 1; }
  sed -i "s/$2/$3/g" "$scratch/spoilt/bin/$1"
}

Fresh() {
  rm -rf "$scratch/spoilt" "$scratch/out"
  mkdir -p "$scratch/spoilt/bin"
  cp "$build/bin/Vantle.aex" "$build/bin/vantle.exe" "$scratch/spoilt/bin/"
}

# Refused "what" "part of the message": packaging the spoilt copy must fail, say that, and write nothing.
Refused() {
  local status=0
  "$root/packaging/package.sh" "$scratch/spoilt" "$scratch/out" >"$scratch/log" 2>&1 || status=$?
  if ((status == 0)) || ! grep '^package: ' "$scratch/log" | grep -qF "$2"; then
    printf 'FAIL %s: exit code %s, wanted "%s" in:\n' "$1" "$status" "$2"
    cat "$scratch/log"
    failures=$((failures + 1))
  elif [[ -n $(ls "$scratch/out") ]]; then
    printf 'FAIL %s: refused, but wrote %s\n' "$1" "$(ls "$scratch/out")"
    failures=$((failures + 1))
  else
    printf 'ok   %s: %s\n' "$1" "$(grep '^package: ' "$scratch/log")"
  fi
}

Fresh
Spoil vantle.exe ADVAPI32.dll STRANGE2.dll
Refused "a library that no Windows has" "vantle.exe needs STRANGE2.dll"

Fresh
Spoil Vantle.aex GetTickCount64 GetTockCount64
Refused "a function that its library lacks" "which has no such function"

Fresh
Spoil Vantle.aex EffectMain EffectMane
Refused "a wrong entry point" "instead of its two entry points"

Fresh
printf '%s/base/matrix.cpp' "$root" >>"$scratch/spoilt/bin/Vantle.aex"
Refused "a path of the sources" "Vantle.aex holds paths of this machine: $root/base/matrix.cpp"

Fresh
printf '/usr/include/stdio.h' >>"$scratch/spoilt/bin/vantle.exe"
Refused "a path of the compiler's machine" "vantle.exe holds paths of this machine: /usr/include/stdio.h"

Fresh
rm "$scratch/spoilt/bin/vantle.exe"
Refused "a missing program" "holds no Windows build"

# Every licence in turn.
Fresh
mkdir -p "$scratch/share/doc"
cp -rL /usr/share/common-licenses "$scratch/share/"
for package in gcc-mingw-w64-base mingw-w64-x86-64-dev duktape-dev nlohmann-json3-dev libstb-dev nsis-common; do
  mkdir -p "$scratch/share/doc/$package"
  cp "/usr/share/doc/$package/copyright" "$scratch/share/doc/$package/" 2>/dev/null ||
    echo GCC RUNTIME LIBRARY EXCEPTION >"$scratch/share/doc/$package/copyright"
done
export LICENCE_ROOT=$scratch/share
for file in doc/gcc-mingw-w64-base/copyright doc/mingw-w64-x86-64-dev/copyright doc/duktape-dev/copyright \
  doc/nlohmann-json3-dev/copyright doc/libstb-dev/copyright doc/nsis-common/copyright common-licenses/GPL-3; do
  mv "$scratch/share/$file" "$scratch/away"
  Refused "without $file" "is missing: $scratch/share/$file"
  mv "$scratch/away" "$scratch/share/$file"
done
sed -i 's/GCC RUNTIME LIBRARY EXCEPTION/GCC RUNTIME LIBRARY/' "$scratch/share/doc/gcc-mingw-w64-base/copyright"
Refused "a compiler without its exception" "lacks the exception"

((failures == 0)) || exit 1
