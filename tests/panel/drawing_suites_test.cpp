// The suites' books: every object, state and reference is checked, whatever an effect does with them.
#include "host/engine/suites.h"
#include "host_api/commands.h"
#include "tests/panel/drawing_effect.h"

#include <cstring>
#include <gtest/gtest.h>
#include <limits>

namespace vantle::host {
namespace {

constexpr DRAWBOT_ColorRGBA kRed{1, 0, 0, 1};
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

struct DrawingSuites : testing::Test {
  std::unique_ptr<EffectInstance> effect = OpenDrawingEffect();
  DrawingSession session;

  FrameResult Draw(const Drawer& drawer) { return SendDrawing(*effect, session, PF_Event_DRAW, drawer); }
  std::string ProblemsWith(const Drawer& drawer) { return ProblemsOf(Draw(drawer)); }
};

DRAWBOT_ObjectRef Object(void* ref) {
  return static_cast<DRAWBOT_ObjectRef>(ref);
}

DRAWBOT_PenRef NewPen(const Pencil& p) {
  DRAWBOT_PenRef pen = nullptr;
  EXPECT_EQ(p.supplier->NewPen(p.supplierRef, &kRed, 1.5f, &pen), PF_Err_NONE);
  return pen;
}

DRAWBOT_PathRef NewPath(const Pencil& p) {
  DRAWBOT_PathRef path = nullptr;
  EXPECT_EQ(p.supplier->NewPath(p.supplierRef, &path), PF_Err_NONE);
  return path;
}

PF_Err Release(const Pencil& p, void* ref) {
  return p.supplier->ReleaseObject(Object(ref));
}

TEST_F(DrawingSuites, ACleanEventLeavesNothingAndIsWrittenDown) {
  const FrameResult result = Draw([](const Pencil& p) {
    const DRAWBOT_PenRef pen = NewPen(p);
    const DRAWBOT_PathRef path = NewPath(p);
    p.path->MoveTo(path, 1, 2);
    p.path->LineTo(path, 30.25f, 0.1f);
    p.surface->StrokePath(p.surfaceRef, pen, path);
    Release(p, path);
    return Release(p, pen);
  });
  EXPECT_TRUE(Succeeded(result)) << ProblemsOf(result);
  const std::vector<std::string> expected = {"get drawing reference",
                                             "get supplier",
                                             "get surface",
                                             "pen1 = new pen 1 0 0 1 width 1.5",
                                             "path1 = new path",
                                             "path1 move to 1 2",
                                             "path1 line to 30.25 0.1",
                                             "stroke path1 with pen1",
                                             "release path1",
                                             "release pen1"};
  EXPECT_EQ(session.calls, expected);
  ASSERT_EQ(session.list.size(), 1u);
  EXPECT_EQ(std::get<StrokePathOp>(session.list[0]).path.size(), 2u);
}

TEST_F(DrawingSuites, AnObjectNeverReleasedIsReported) {
  const std::string problems = ProblemsWith([](const Pencil& p) {
    NewPen(p);
    NewPath(p);
    return PF_Err_NONE;
  });
  EXPECT_NE(problems.find("drawing object pen taken 1 times, given back 0"), std::string::npos) << problems;
  EXPECT_NE(problems.find("drawing object path taken 1 times, given back 0"), std::string::npos) << problems;
}

TEST_F(DrawingSuites, AnObjectReleasedTwiceIsReported) {
  const std::string problems = ProblemsWith([](const Pencil& p) {
    const DRAWBOT_PenRef pen = NewPen(p);
    EXPECT_EQ(Release(p, pen), PF_Err_NONE);
    EXPECT_EQ(Release(p, pen), PF_Err_BAD_CALLBACK_PARAM);
    return PF_Err_NONE;
  });
  EXPECT_EQ(problems, "ReleaseObject called with an object that was released\n");
}

TEST_F(DrawingSuites, AnObjectUsedAfterItsReleaseIsReported) {
  const std::string problems = ProblemsWith([](const Pencil& p) {
    const DRAWBOT_PathRef path = NewPath(p);
    Release(p, path);
    EXPECT_EQ(p.path->LineTo(path, 1, 1), PF_Err_BAD_CALLBACK_PARAM);
    return PF_Err_NONE;
  });
  EXPECT_EQ(problems, "LineTo called with an object that was released\n");
}

TEST_F(DrawingSuites, AnObjectOfAnEarlierEventIsReported) {
  DRAWBOT_PenRef kept = nullptr;
  Draw([&](const Pencil& p) {
    kept = NewPen(p);
    return PF_Err_NONE;
  });
  const std::string problems = ProblemsWith([&](const Pencil& p) {
    EXPECT_EQ(Release(p, kept), PF_Err_BAD_CALLBACK_PARAM);
    return PF_Err_NONE;
  });
  EXPECT_EQ(problems, "ReleaseObject called with an object that was released\n");
}

TEST_F(DrawingSuites, AnObjectOfAnyEarlierEventIsKnownButKeepsNoPath) {
  DRAWBOT_PathRef kept = nullptr;
  Draw([&](const Pencil& p) {
    kept = NewPath(p);
    return p.path->LineTo(kept, 1, 1);
  });
  for (int event = 0; event < 3; ++event) {
    EXPECT_TRUE(Succeeded(Draw([](const Pencil& p) { return Release(p, NewPath(p)); })));
  }
  EXPECT_TRUE(session.current.empty());
  EXPECT_TRUE(session.objects.at(kept)->path.empty());
  const std::string problems = ProblemsWith([&](const Pencil& p) {
    EXPECT_EQ(p.path->Close(kept), PF_Err_BAD_CALLBACK_PARAM);
    return PF_Err_NONE;
  });
  EXPECT_EQ(problems, "Close called with an object that was released\n");
}

TEST_F(DrawingSuites, ARetainedObjectWantsTwoReleases) {
  EXPECT_TRUE(Succeeded(Draw([](const Pencil& p) {
    const DRAWBOT_PenRef pen = NewPen(p);
    EXPECT_EQ(p.supplier->RetainObject(Object(pen)), PF_Err_NONE);
    EXPECT_EQ(Release(p, pen), PF_Err_NONE);
    return Release(p, pen);
  })));
  const std::string problems = ProblemsWith([](const Pencil& p) {
    const DRAWBOT_PenRef pen = NewPen(p);
    p.supplier->RetainObject(Object(pen));
    return Release(p, pen);
  });
  EXPECT_EQ(problems, "drawing object pen taken 2 times, given back 1\n");
}

TEST_F(DrawingSuites, WildAndNullObjectsAndOtherKindsAreReported) {
  int wild = 0;
  const std::string problems = ProblemsWith([&](const Pencil& p) {
    EXPECT_EQ(Release(p, &wild), PF_Err_BAD_CALLBACK_PARAM);
    EXPECT_EQ(Release(p, nullptr), PF_Err_BAD_CALLBACK_PARAM);
    const DRAWBOT_PenRef pen = NewPen(p);
    EXPECT_EQ(p.path->Close(reinterpret_cast<DRAWBOT_PathRef>(pen)), PF_Err_BAD_CALLBACK_PARAM);
    return Release(p, pen);
  });
  EXPECT_NE(problems.find("ReleaseObject called with an object that this panel never made"),
            std::string::npos);
  EXPECT_NE(problems.find("ReleaseObject called with a null object"), std::string::npos);
  EXPECT_NE(problems.find("Close called with a pen instead of a path"), std::string::npos);
}

TEST_F(DrawingSuites, DrawingOutsideOfDrawIsRefused) {
  const FrameResult result = SendDrawing(*effect, session, PF_Event_DO_CLICK, [&](const Pencil& p) {
    DRAWBOT_DrawRef reference = nullptr;
    EXPECT_EQ(p.customUi->PF_GetDrawingReference(p.extra->contextH, &reference), PF_Err_BAD_CALLBACK_PARAM);
    EXPECT_EQ(reference, nullptr);
    DRAWBOT_PathRef path = nullptr;
    EXPECT_EQ(p.supplier->NewPath(p.supplierRef, &path), PF_Err_BAD_CALLBACK_PARAM);
    EXPECT_EQ(path, nullptr);
    return PF_Err_NONE;
  });
  EXPECT_EQ(
      ProblemsOf(result),
      "PF_GetDrawingReference called outside of a DRAW event\nNewPath called outside of a DRAW event\n");
}

TEST_F(DrawingSuites, AForeignReferenceSupplierOrSurfaceIsReported) {
  char other = 0;
  const std::string problems = ProblemsWith([&](const Pencil& p) {
    DRAWBOT_SurfaceRef surface = nullptr;
    EXPECT_NE(p.draw->GetSurface(reinterpret_cast<DRAWBOT_DrawRef>(&other), &surface), PF_Err_NONE);
    DRAWBOT_PathRef path = nullptr;
    EXPECT_NE(p.supplier->NewPath(reinterpret_cast<DRAWBOT_SupplierRef>(&other), &path), PF_Err_NONE);
    EXPECT_NE(p.surface->Flush(reinterpret_cast<DRAWBOT_SurfaceRef>(&other)), PF_Err_NONE);
    DRAWBOT_DrawRef reference = nullptr;
    EXPECT_NE(p.customUi->PF_GetDrawingReference(nullptr, &reference), PF_Err_NONE);
    return PF_Err_NONE;
  });
  EXPECT_EQ(std::count(problems.begin(), problems.end(), '\n'), 4) << problems;
}

TEST_F(DrawingSuites, NumbersThatCannotBeDrawnAreReported) {
  const std::string problems = ProblemsWith([](const Pencil& p) {
    const DRAWBOT_PathRef path = NewPath(p);
    EXPECT_NE(p.path->MoveTo(path, kNan, 0), PF_Err_NONE);
    EXPECT_NE(p.path->AddRect(path, nullptr), PF_Err_NONE);
    const DRAWBOT_RectF32 endless{0, 0, std::numeric_limits<float>::infinity(), 1};
    EXPECT_NE(p.surface->PaintRect(p.surfaceRef, &kRed, &endless), PF_Err_NONE);
    DRAWBOT_PenRef pen = nullptr;
    EXPECT_NE(p.supplier->NewPen(p.supplierRef, &kRed, 0, &pen), PF_Err_NONE);
    return Release(p, path);
  });
  EXPECT_EQ(std::count(problems.begin(), problems.end(), '\n'), 4) << problems;
  EXPECT_TRUE(session.list.empty());
}

TEST_F(DrawingSuites, StatesMustBalance) {
  EXPECT_EQ(ProblemsWith([](const Pencil& p) { return p.surface->PushStateStack(p.surfaceRef); }),
            "drawing object pushed state taken 1 times, given back 0\n");
  EXPECT_EQ(ProblemsWith([](const Pencil& p) {
              EXPECT_NE(p.surface->PopStateStack(p.surfaceRef), PF_Err_NONE);
              return PF_Err_NONE;
            }),
            "drawing object pushed state given back without having been taken\n");
}

TEST_F(DrawingSuites, ClipBoundsFollowStatesAndTransforms) {
  const FrameResult result = Draw([](const Pencil& p) {
    DRAWBOT_Rect32 bounds{};
    p.surface->GetClipBounds(p.surfaceRef, &bounds);
    EXPECT_EQ(bounds.width, 100);
    EXPECT_EQ(bounds.height, 50);
    p.surface->PushStateStack(p.surfaceRef);
    const DRAWBOT_MatrixF32 twiceAndMoved{{{2, 0, 0}, {0, 2, 0}, {10, 0, 1}}};
    p.surface->Transform(p.surfaceRef, &twiceAndMoved);
    const DRAWBOT_Rect32 clip{5, 5, 10, 100};
    p.surface->Clip(p.surfaceRef, p.supplierRef, &clip);
    p.surface->GetClipBounds(p.surfaceRef, &bounds);
    EXPECT_EQ(bounds.left, 20);
    EXPECT_EQ(bounds.top, 10);
    EXPECT_EQ(bounds.width, 20);
    EXPECT_EQ(bounds.height, 40);
    const DRAWBOT_Rect32 inside{20, 10, 3, 3}, outside{19, 10, 3, 3};
    DRAWBOT_Boolean within = 0;
    p.surface->IsWithinClipBounds(p.surfaceRef, &inside, &within);
    EXPECT_EQ(within, 1);
    p.surface->IsWithinClipBounds(p.surfaceRef, &outside, &within);
    EXPECT_EQ(within, 0);
    p.surface->PopStateStack(p.surfaceRef);
    p.surface->GetClipBounds(p.surfaceRef, &bounds);
    EXPECT_EQ(bounds.width, 100);
    return PF_Err_NONE;
  });
  EXPECT_TRUE(Succeeded(result)) << ProblemsOf(result);
}

TEST_F(DrawingSuites, ThePickerAnswersAndTheMouseIsWhereItIs) {
  session.mouse.h = 7;
  session.mouse.v = 9;
  session.picker = [](const std::string& title, const PF_PixelFloat& sample) {
    EXPECT_EQ(title, "A title");
    EXPECT_EQ(sample.green, 0.5f);
    return PickerReply{PF_Err_NONE, {1, 0.25f, 0.75f, 0}};
  };
  const FrameResult result = SendDrawing(*effect, session, PF_Event_DO_CLICK, [](const Pencil& p) {
    const PF_PixelFloat sample{1, 0, 0.5f, 0};
    PF_PixelFloat color{};
    EXPECT_EQ(p.app->PF_AppColorPickerDialog("A title", &sample, 0, &color), PF_Err_NONE);
    EXPECT_EQ(color.red, 0.25f);
    PF_Point mouse{};
    EXPECT_EQ(p.app->PF_GetMouse(&mouse), PF_Err_NONE);
    EXPECT_EQ(mouse.v, 9);
    EXPECT_EQ(p.app->PF_InvalidateRect(p.extra->contextH, nullptr), PF_Err_NONE);
    return PF_Err_NONE;
  });
  EXPECT_TRUE(Succeeded(result)) << ProblemsOf(result);
  EXPECT_EQ(session.invalidated.size(), 1u);
}

TEST_F(DrawingSuites, SlotsThatThisHostDoesNotServeSaySo) {
  const std::string problems = ProblemsWith([](const Pencil& p) {
    PF_AsyncManagerP manager = nullptr;
    EXPECT_NE(p.customUi->PF_GetContextAsyncManager(p.in, p.extra, &manager), PF_Err_NONE);
    return PF_Err_NONE;
  });
  EXPECT_NE(problems.find("slot 1 of PF Effect Custom UI Suite"), std::string::npos) << problems;
}

TEST(DrawingSuitesOffer, NoTableHasAnEmptySlotAndOldVersionsAreThere) {
  for (const SuiteEntry& suite : AllSuites()) {
    if (suite.name.rfind("DRAWBOT", 0) != 0) continue;
    EXPECT_TRUE(suite.inPremiere) << suite.name;
  }
  ASSERT_NE(FindSuite("PF Effect Custom UI Suite", 1), nullptr);
  EXPECT_TRUE(FindSuite("PF Effect Custom UI Suite", 1)->inPremiere);
  ASSERT_NE(FindSuite("PF Effect Custom UI Suite", 2), nullptr);
  EXPECT_FALSE(FindSuite("PF Effect Custom UI Suite", 2)->inPremiere);
  ASSERT_NE(FindSuite("PF AE App Suite", 1), nullptr);
  EXPECT_FALSE(FindSuite("PF AE App Suite", 1)->inPremiere);
  EXPECT_EQ(FindSuite("PF AE App Suite", 2), nullptr);
  const auto* supplier =
      static_cast<const DRAWBOT_SupplierSuite1*>(FindSuite("DRAWBOT Supplier Suite", 1)->functions);
  void* slots[sizeof *supplier / sizeof(void*)];
  std::memcpy(slots, supplier, sizeof slots);
  for (const void* slot : slots) EXPECT_NE(slot, nullptr);
}

}  // namespace
}  // namespace vantle::host
