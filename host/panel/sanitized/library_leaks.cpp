// The font library keeps what it once loaded until the process ends, which the leak checker cannot know. It
// looks for this function among the program's visible ones.
extern "C" [[gnu::visibility("default")]] const char*
__lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
  return "leak:libfontconfig\n";
}
