// The stages of a frame, each as plain code does it and as the product does it, on the same input.
#pragma once

#include "bench/measure/scenes.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantle::measure {

/// One stage. The goals say how many times as fast as plain code the product should be; 0 for none.
struct Work {
  std::string name;
  std::string item;  ///< what is counted
  double items = 1.0;
  bool isThreaded = false;
  double goalAvx512 = 0.0;
  double goalAvx2 = 0.0;
  std::function<void()> plain;
  std::function<void()> product;
};

/// All stages at 1920 x 1080. The works own what they measure.
std::vector<Work> MakeWorks();

// The groups of which they are made.
void AddLayerWorks(const std::shared_ptr<Scene>& scene, std::vector<Work>* works);
void AddParticleWorks(const std::shared_ptr<Scene>& scene, std::vector<Work>* works);
void AddRasterWork(const std::shared_ptr<Scene>& scene, const Work& described, std::vector<Work>* works);
void AddFrameWork(const std::shared_ptr<Scene>& scene, const Work& described, std::vector<Work>* works);

}  // namespace vantle::measure
