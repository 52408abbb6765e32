// How a program is started and ended on Windows.
#pragma once

#include <filesystem>
#include <string>
#include <vector>
#include <windows.h>

namespace vantle::test {

/// One word of a command line, as the C library takes it apart again: a backslash counts as one unless a
/// quotation mark follows.
inline std::string QuotedWord(const std::string& word) {
  std::string quoted = "\"";
  size_t backslashes = 0;
  for (const char c : word) {
    if (c == '"') quoted.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  return quoted.append(backslashes, '\\') + "\"";
}

/// A file for the program's output, which it inherits.
inline HANDLE OutputFile(const std::string& path) {
  SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Starts the program in `folder`, its output going to out.txt and err.txt there; null when it cannot start.
inline HANDLE StartProgram(const std::string& folder, const std::vector<std::string>& words) {
  const std::string program = std::filesystem::absolute(VANTLE_PROGRAM).string();
  std::string line = QuotedWord(program);
  for (const std::string& word : words) line += " " + QuotedWord(word);
  STARTUPINFOA start{};
  start.cb = sizeof(start);
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = OutputFile(folder + "/out.txt");
  start.hStdError = OutputFile(folder + "/err.txt");
  PROCESS_INFORMATION process{};
  const BOOL started = CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                      folder.c_str(), &start, &process);
  CloseHandle(start.hStdOutput);
  CloseHandle(start.hStdError);
  if (started == 0) return nullptr;
  CloseHandle(process.hThread);
  return process.hProcess;
}

/// Its exit code; -1 when it never started.
inline int EndProgram(HANDLE child) {
  if (child == nullptr) return -1;
  DWORD code = 0;
  WaitForSingleObject(child, INFINITE);
  GetExitCodeProcess(child, &code);
  CloseHandle(child);
  return static_cast<int>(code);
}

}  // namespace vantle::test
