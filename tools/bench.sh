# What is measured, and where the figures go. Sourced by ./run, not run.

benchBuild=build/release
benchFigures=out/bench
benchCounts=bench/instruction_counts.json
benchPackages=(python3)
countPackages=(python3 valgrind)

# Figures NAME command...: keeps what the command prints as the figures of that name; progress goes to the screen.
Figures() {
  local name=$1
  shift
  mkdir -p "$benchFigures"
  "$@" >"$benchFigures/$name.tmp" || Fail "measuring '$name' failed"
  mv "$benchFigures/$name.tmp" "$benchFigures/$name.json"
}

MeasureTable() { Figures table "$benchBuild/bin/vantle_measure" table --seconds 150 "$@"; }
MeasureShapes() { Figures shapes "$benchBuild/bin/vantle_measure" shapes --seconds 60 "$@"; }
MeasureScaling() { Figures scaling "$benchBuild/bin/vantle_measure" scaling --seconds 60 "$@"; }

MeasureMemory() {
  mkdir -p "$benchFigures"
  "$benchBuild/bin/shell_memory_test" --gtest_filter='*Stay*' --gtest_brief=1 \
    --gtest_output="json:$benchFigures/memory.json" >&2 || Fail "a frame takes more memory than it may"
}

# Section NAME: prints the figures of that name.
Section() { python3 tools/bench/report.py "$1" "$benchFigures/$1.json"; }

# All of it, into the document: under ten minutes on a quiet machine, two or three with --quick.
BenchReport() {
  local rounds=9
  [[ ${1:-} != --quick ]] || rounds=2
  MeasureTable "$@"
  MeasureShapes "$@"
  MeasureScaling "$@"
  Figures concurrent "$benchBuild/bin/vantle" bench --concurrent 4 --json --rounds "$rounds"
  Figures frames "$benchBuild/bin/vantle" bench --json --rounds "$rounds"
  MeasureMemory
  python3 tools/bench/report.py write "$benchFigures" docs/performance.md docs/images/scaling.svg
  printf 'The figures are in docs/performance.md, the plot is docs/images/scaling.svg.\n'
}

# Bench [--table|--worst|--scaling|--concurrent|--report|--check|--stages] [options]
Bench() {
  local what=${1:-}
  [[ $what != --check ]] || Install "${countPackages[@]}"
  Install "${benchPackages[@]}"
  BuildForBench
  case "$what" in
    --stages) exec "$benchBuild/bin/vantle_bench" "${@:2}" ;;
    --table) MeasureTable "${@:2}" && Section table ;;
    --worst) MeasureShapes "${@:2}" && Section shapes ;;
    --scaling) MeasureScaling "${@:2}" && Section scaling ;;
    --report) BenchReport "${@:2}" ;;
    --check) python3 tools/bench/instruction_counts.py "$benchBuild/bin/vantle_measure" "$benchCounts" "${@:2}" ;;
    *) exec "$benchBuild/bin/vantle" bench "$@" ;;
  esac
}

BuildForBench() { Build --target vantle_program vantle_effect vantle_bench vantle_measure shell_memory_test; }
