// The real effect, opened for one test and closed with balanced books.
#pragma once

#include "host/engine/effect.h"
#include "host/engine/module.h"

#include <gtest/gtest.h>
#include <memory>

namespace vantle::test {

class WithEffect : public testing::Test {
 protected:
  void SetUp() override {
    host::LoadedModule loaded = host::LoadModule(VANTLE_MODULE);
    ASSERT_TRUE(loaded.module) << loaded.message;
    host::OpenedEffect opened = host::OpenEffect(*loaded.module, {});
    ASSERT_TRUE(opened.effect) << opened.result.message;
    effect = std::move(opened.effect);
  }
  void TearDown() override {
    if (!effect) return;
    for (const std::string& problem : host::CloseEffect(*effect).problems) ADD_FAILURE() << problem;
  }

  std::unique_ptr<host::EffectInstance> effect;
};

}  // namespace vantle::test
