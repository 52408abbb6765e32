// Small effects linked into the tests, for what goes wrong at set-up.
#pragma once

#include "host/engine/effect.h"
#include "host/engine/frame_request.h"

#include <functional>

namespace vantle::host {

/// The effect's commands as a test wants them.
using Commands = std::function<PF_Err(PF_Cmd, PF_InData*, PF_OutData*, PF_ParamDef**, PF_LayerDef*, void*)>;

/// A module whose commands go to `commands`, which stay set until the next call. Global set-up, when left to
/// it by returning PF_Err_NONE untouched, already has a version.
Module ModuleOf(Commands commands);

/// A record for add_param.
PF_ParamDef Param(A_long id, PF_ParamType type, const char* name);

/// The misbehaving module, opened; fails the test when that does not work.
OpenedEffect OpenMisbehaving(const HostOptions& options = {});

/// A small frame of that module, with one misdeed.
FrameRequest SmallFrame(A_long misdeed);

/// All lines in one, for messages of tests.
std::string Joined(const std::vector<std::string>& lines);

}  // namespace vantle::host
