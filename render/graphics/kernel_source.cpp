#include "render/graphics/kernel_source.h"

namespace vantle {
namespace {

constexpr char kText[] =
#include "render/graphics/kernel_text.inc"
    ;

}  // namespace

std::string_view KernelSource() {
  return {kText, sizeof(kText) - 1};
}

}  // namespace vantle
