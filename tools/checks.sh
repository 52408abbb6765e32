# Format, lint and the house rules that a compiler does not check. Sourced by ./run, not run.

ownFolders=(base particles render host_api ui shell host packaging tests bench tools)

OwnFiles() { find "${ownFolders[@]}" -type f \( -name '*.cpp' -o -name '*.h' \) | sort; }

FormatCheck() { OwnFiles | xargs clang-format --dry-run --Werror; }
FormatWrite() { OwnFiles | xargs clang-format -i; }

Format() {
  Install "${formatPackages[@]}"
  case "${1:-}" in
    --check) Step "format check" FormatCheck ;;
    '') Step "format" FormatWrite ;;
    *) Fail "format takes --check or nothing, not '$1'" ;;
  esac
}

# Uses run one way: each folder may include only the folders listed for it, and the core folders nothing of
# an operating system either.
declare -A mayInclude=(
  [host_api]="host_api" [base]="base" [particles]="base particles" [render]="base particles render"
  [ui]="base particles render ui host_api" [shell]="base particles render ui shell host_api"
  [host]="base particles render host_api host" [packaging]="host_api shell packaging"
)

# Angle brackets in the core are for the language's own headers; a name with a dot or a slash is someone else's. The
# vector instructions' header is allowed: which processor is not a question of which system. Files that are written
# for one system say so in their names.
systemHeader='^#[[:space:]]*include[[:space:]]*<[^>]*[./][^>]*>'
platformFile='_(win32|posix|d3d11)\.(h|cpp):'
allowedSystemHeader='<[a-z]*intrin\.h>|<omp\.h>'

IncludesCheck() {
  local folder found=0 line
  for folder in "${!mayInclude[@]}"; do
    line=$(grep -rnE '^#[[:space:]]*include[[:space:]]*"' --include='*.h' --include='*.cpp' "$folder" |
      grep -vE "include[[:space:]]*\"(${mayInclude[$folder]// /|})/" || true)
    [[ -z $line ]] || { printf '%s/ may include only %s:\n%s\n' "$folder" "${mayInclude[$folder]}" "$line"; found=1; }
  done
  for folder in base particles render ui shell; do
    line=$(grep -rnE "$systemHeader" --include='*.h' --include='*.cpp' "$folder" |
      grep -vE "$allowedSystemHeader|^[^:]*$platformFile" || true)
    [[ -z $line ]] || { printf '%s/ knows no operating system:\n%s\n' "$folder" "$line"; found=1; }
  done
  return "$found"
}

# Paths of somebody's machine, and pointers to papers that a reader of this repository does not have. The
# brackets keep the pattern from matching itself.
forbiddenText='(^|[^a-zA-Z0-9_.])/(wor[k]|tm[p]|roo[t]|hom[e])/|\.\./share[d]|\bPar[t] [0-9]+\.[0-9]|\bthe spe[c]\b|\bissu[e] #?[0-9]'

# Words that only some compilers know stand in one header.
compilerWords='__GNUC__|__clang__|_MSC_VER|__MINGW|__attribute__|__declspec|__builtin_|__restrict|__int128|__asm|#[[:space:]]*pragma[[:space:]]+(GCC|clang|warning)'

CompilersCheck() {
  if OwnFiles | grep -v '^base/compiler\.h$' | xargs grep -nE "$compilerWords"; then
    echo "What compilers differ in belongs into base/compiler.h."
    return 1
  fi
}

TextCheck() {
  CompilersCheck || return 1
  if grep -rInE "$forbiddenText" --exclude-dir=.git --exclude-dir=build --exclude-dir=out --exclude-dir=dist .; then
    echo "The texts above have no place in the repository."
    return 1
  fi
}

ConfigureClang() {
  Step "configure clang" cmake --preset release -B build/clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_COMPILE_WARNING_AS_ERROR="$(WarningsAsErrors clang++)"
}

# Tests and benchmarks are left to the compilers: their expanded macros take most of the time and find nothing. Files
# for another system cannot be read here, and the assertions on the interface's layout compare constants by intent.
TidyCheck() {
  find base particles render host_api ui shell host -name '*.cpp' -not -name '*_win32.cpp' -not -name '*_d3d11.cpp' \
    -not -name layout_checks.cpp -print0 |
    sort -z | xargs -0 -n 4 -P "$(nproc)" clang-tidy -p build/clang --quiet --warnings-as-errors='*'
}

Lint() {
  Step "includes run one way" IncludesCheck
  Step "no forbidden texts" TextCheck
  Install "${buildPackages[@]}"
  Step "manual tells of every control" ManualCheck
  [[ ${1:-} != --rules ]] || return 0
  Install "${clangPackages[@]}" "${lintPackages[@]}"
  ConfigureClang
  Step "static analysis" TidyCheck
}
