// What the command line needs of the operating system.
#pragma once

#include <cstdint>
#include <string>

namespace vantle::cli {

/// Folder of the running program.
std::string ProgramFolder();

/// File name of the effect beside the program.
const char* ModuleFileName();

/// Lets a write beyond the user's limit fail, as on a full disk, instead of ending the program.
void SurviveFileLimits();

/// From now on an interrupt (Ctrl-C) or a request to end only sets a flag; a second one ends the program at
/// once.
void CatchInterrupts();
bool WasInterrupted();

/// Ends the program with this exit code, all output written.
[[noreturn]] void EndProgram(int code);

/// Whether standard error is a terminal.
bool ErrorsGoToTerminal();

/// Most memory that the program ever held, and the machine's memory; bytes.
int64_t PeakMemory();
int64_t MachineMemory();

/// Name of the processor and of the operating system.
std::string ProcessorName();
std::string SystemName();

}  // namespace vantle::cli
