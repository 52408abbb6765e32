# The reference part of docs/manual.md, written from the parameter table. Sourced by ./run, not run.

WriteManual() {
  mkdir -p build
  g++ -std=c++20 -I. tools/manual/controls.cpp -o build/manual_controls
  { sed '/^<!-- From here on/q' docs/manual.md && build/manual_controls; } >"$1"
}

UpdateManual() { WriteManual build/manual.md && cp build/manual.md docs/manual.md; }

ManualCheck() {
  WriteManual build/manual.md
  diff docs/manual.md build/manual.md || { echo "docs/manual.md is out of date: ./run manual"; return 1; }
}
