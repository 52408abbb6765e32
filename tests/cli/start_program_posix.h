// How a program is started and ended on POSIX systems.
#pragma once

#include <csignal>
#include <fcntl.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vantle::test {

/// Starts the program in `folder`, its output going to out.txt and err.txt there. `fileLimit` above 0 is the
/// size in bytes that no file may grow beyond.
inline pid_t StartProgram(const std::string& folder, const std::vector<std::string>& words,
                          int fileLimit = 0) {
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
    const auto bytes = static_cast<rlim_t>(fileLimit);
    const struct rlimit limit = {bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  if (chdir(folder.c_str()) == 0) execv(VANTLE_PROGRAM, argv.data());
  _exit(127);
}

/// Its exit code; -1 when a signal ended it.
inline int EndProgram(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace vantle::test
