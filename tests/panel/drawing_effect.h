// A small effect linked into the tests that does what a test wants in its events.
#pragma once

#include "host/drawing/drawing_session.h"
#include "host/engine/effect.h"
#include "host/engine/frame_request.h"
#include "host_api/drawbot.h"
#include "host_api/pf_suites.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantle::host {

/// What a test's event has at hand. Suites are acquired before it and released after it.
struct Pencil {
  PF_InData* in = nullptr;
  PF_EventExtra* extra = nullptr;
  const DRAWBOT_DrawbotSuite1* draw = nullptr;
  const DRAWBOT_SupplierSuite1* supplier = nullptr;
  const DRAWBOT_SurfaceSuite2* surface = nullptr;
  const DRAWBOT_PathSuite1* path = nullptr;
  const PF_EffectCustomUISuite2* customUi = nullptr;
  const PFAppSuite6* app = nullptr;
  DRAWBOT_SupplierRef supplierRef = nullptr;  ///< null outside of DRAW events
  DRAWBOT_SurfaceRef surfaceRef = nullptr;
};

using Drawer = std::function<PF_Err(const Pencil&)>;

/// The effect, set up.
std::unique_ptr<EffectInstance> OpenDrawingEffect();

/// Sends an event of 100 x 50 units in which the effect runs `drawer`.
FrameResult SendDrawing(EffectInstance& effect, DrawingSession& session, PF_EventType type,
                        const Drawer& drawer);

/// All problems in one text.
std::string ProblemsOf(const FrameResult& result);

}  // namespace vantle::host
