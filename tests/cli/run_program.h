// The built program in a process of its own.
#pragma once

#include "tests/cli/scratch.h"

#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vantle::test {

struct ProgramRun {
  int code = -1;  ///< exit code; -1 when a signal ended the program
  std::string output;
  std::string errors;
};

/// Starts the program in `folder`, its output going to out.txt and err.txt there. `fileLimit` above 0 is the
/// size in bytes that no file may grow beyond.
inline pid_t StartProgram(const std::string& folder, const std::vector<std::string>& words,
                          rlim_t fileLimit = 0) {
  std::vector<std::string> all = {VANTLE_PROGRAM};
  all.insert(all.end(), words.begin(), words.end());
  std::vector<char*> argv;
  for (std::string& word : all) argv.push_back(word.data());
  argv.push_back(nullptr);
  const std::string out = folder + "/out.txt", err = folder + "/err.txt";
  const pid_t child = fork();
  if (child != 0) return child;
  dup2(open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDOUT_FILENO);
  dup2(open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
  if (fileLimit > 0) {
    const struct rlimit limit = {fileLimit, fileLimit};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  if (chdir(folder.c_str()) == 0) execv(VANTLE_PROGRAM, argv.data());
  _exit(127);
}

inline ProgramRun EndProgram(const std::string& folder, pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadText(folder + "/out.txt"),
          ReadText(folder + "/err.txt")};
}

inline ProgramRun RunProgram(const Scratch& scratch, const std::vector<std::string>& words,
                             rlim_t fileLimit = 0) {
  const std::string folder = scratch.folder.string();
  return EndProgram(folder, StartProgram(folder, words, fileLimit));
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
