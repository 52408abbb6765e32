# Named, timed steps for ./run: one line a step, its whole output kept in a log, the log's end shown on failure.
# Sourced, not run.

logFolder=build/logs
stepLines=()

SecondsSince() { awk -v from="$1" -v to="$EPOCHREALTIME" 'BEGIN { printf "%.1f", to - from }'; }

# Step "name" command...: runs the command with its output in a log; ends the program when it fails.
Step() {
  local name=$1 started=$EPOCHREALTIME seconds line log status=0
  shift
  mkdir -p "$logFolder"
  log="$logFolder/$(tr -c 'a-zA-Z0-9\n' '-' <<<"$name").log"
  [[ ! -t 1 ]] || printf '...  %s\r' "$name"
  "$@" >"$log" 2>&1 </dev/null || status=$?
  seconds=$(SecondsSince "$started")
  if ((status != 0)); then
    printf 'FAIL %-44s %8s s\n' "$name" "$seconds"
    tail -n 60 "$log"
    Fail "step '$name' failed with exit code $status; the whole log is $log"
  fi
  line=$(printf 'ok   %-44s %8s s' "$name" "$seconds")
  printf '%s\n' "$line"
  stepLines+=("$line")
}

# Tests "name" folder [ctest arguments]: a step that also shows the closing lines of ctest.
Tests() {
  local name=$1 folder=$2 summary
  shift 2
  Step "$name" ctest --test-dir "$folder" --output-on-failure --no-tests=error -j "$(nproc)" "$@"
  summary=$(grep -E 'tests passed|Total Test time' "$logFolder/$(tr -c 'a-zA-Z0-9\n' '-' <<<"$name").log" || true)
  printf '%s\n' "$summary"
  stepLines+=("     $(head -n 1 <<<"$summary")")
}

# Told again at the end, so that a long run can be read from its last lines.
PrintSteps() {
  printf '\nSteps of %s:\n' "$1"
  printf '%s\n' "${stepLines[@]}"
  printf 'All done in %s s.\n' "$(SecondsSince "$runStarted")"
}

Fail() {
  printf 'run: %s\n' "$1" >&2
  exit 1
}
