// The built program in a process of its own.
#pragma once

#include "tests/cli/scratch.h"

#include <algorithm>
#include <string>
#include <vector>

#if defined(_WIN32)
#include "tests/cli/start_program_win32.h"
#else
#include "tests/cli/start_program_posix.h"
#endif

namespace vantle::test {

struct ProgramRun {
  int code = -1;  ///< exit code; -1 when the program did not end by itself
  std::string output;
  std::string errors;
};

/// What a program wrote to a terminal, with the ends of lines of every system made one.
inline std::string ReadOutput(const std::string& path) {
  std::string text = ReadText(path);
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
  return text;
}

/// Runs the program in the scratch folder to its end. `more` goes to StartProgram.
template <class... More>
ProgramRun RunProgram(const Scratch& scratch, const std::vector<std::string>& words, More... more) {
  const std::string folder = scratch.folder.string();
  const int code = EndProgram(StartProgram(folder, words, more...));
  return {code, ReadOutput(folder + "/out.txt"), ReadOutput(folder + "/err.txt")};
}

/// Number of frames, finished or not, that lie in the scratch folder's out/.
inline size_t FilesInOut(const Scratch& scratch) {
  size_t count = 0;
  std::error_code ignored;
  for ([[maybe_unused]] const auto& entry :
       std::filesystem::directory_iterator(scratch.folder / "out", ignored))
    ++count;
  return count;
}

/// Two small pictures, a.png and b.png.
inline void MakePictures(const Scratch& scratch) {
  SavePicture(scratch, "a.png", RandomPicture(40, 24, PixelDepth::k8, 1));
  SavePicture(scratch, "b.png", RandomPicture(30, 30, PixelDepth::k8, 2));
}

}  // namespace vantle::test
