// The program's commands. Each gets its own words, prints results to standard output and reports to standard
// error, returns the exit code, and throws io::Failure when nothing was done.
#pragma once

#include "host/cli/arguments.h"

namespace vantle::cli {

const Command& InfoCommand();
int RunInfo(const Arguments& arguments);

const Command& RenderCommand();
int RunRender(const Arguments& arguments);

const Command& FrameCommand();
int RunFrame(const Arguments& arguments);

const Command& BenchCommand();
int RunBench(const Arguments& arguments);

const Command& SheetCommand();
int RunSheet(const Arguments& arguments);

const Command& PanelCommand();
int RunPanel(const Arguments& arguments);

const Command& PressCommand();
int RunPress(const Arguments& arguments);

}  // namespace vantle::cli
