#include "tests/reference/random_layers.h"

#include <cstring>
#include <limits>

namespace vantle::reference {
namespace {

enum class Content { kOpaque, kFeathered, kSparse, kMask, kEmpty, kFlat, kCount };

float RandomAlpha(Dice& dice, Content content) {
  switch (content) {
    case Content::kFeathered:
      return dice.Unit();
    case Content::kSparse:
      return dice.Chance(0.03f) ? dice.Unit() : 0.0f;
    case Content::kMask:
      return dice.Chance(0.5f) ? 1.0f : dice.OneOf({0.0f, 0.01f, 0.0101f});
    case Content::kEmpty:
      return dice.Between(0.0f, 0.01f);
    default:
      return 1.0f;
  }
}

Channels RandomChannels(Dice& dice, Content content, bool wide) {
  Channels v = {{RandomAlpha(dice, content), dice.Unit(), dice.Unit(), dice.Unit()}};
  if (dice.Chance(0.2f)) v.c[2] = v.c[3] = v.c[1];
  if (dice.Chance(0.1f)) v.c[dice.Range(1, 3)] = dice.OneOf({0.0f, 1.0f});
  if (wide && dice.Chance(0.1f)) v.c[dice.Range(1, 3)] = dice.Between(-1.0f, 4.0f);
  return v;
}

// Values that no sane layer holds, written past the conversions.
void Spoil(Dice& dice, Picture& picture) {
  const Layout& l = picture.layout;
  const float inf = std::numeric_limits<float>::infinity();
  for (int n = dice.Range(1, 8); n > 0; --n) {
    const int32_t x = dice.Below(l.width);
    const int32_t y = dice.Below(l.height);
    const MutableImage image = MutableOf(picture);
    if (l.depth == PixelDepth::k32) {
      const float value = dice.OneOf({inf, -inf, 1e30f, -1e30f, 1e-40f});
      std::memcpy(Row(image, y) + x * 16 + dice.Range(0, 3) * 4, &value, sizeof(value));
    } else if (l.depth == PixelDepth::k16) {
      const uint16_t value = static_cast<uint16_t>(dice.Range(32768, 65535));
      std::memcpy(Row(image, y) + x * 8 + dice.Range(0, 3) * 2, &value, sizeof(value));
    }
  }
}

}  // namespace

Layout RandomLayout(Dice& dice, int32_t largest) {
  Layout l;
  l.width = dice.Chance(0.15f) ? dice.Range(1, 17) : dice.Range(1, largest);
  l.height = dice.Chance(0.15f) ? dice.Range(1, 17) : dice.Range(1, largest);
  l.depth = dice.OneOf({PixelDepth::k8, PixelDepth::k8, PixelDepth::k16, PixelDepth::k32});
  if (dice.Chance(0.5f)) l.padding = dice.OneOf({1, 3, 4, 16, 61});
  if (dice.Chance(0.5f)) l.lead = dice.OneOf({1, 2, 4, 5, 12});
  l.bottomUp = dice.Chance(0.25f);
  return l;
}

Picture RandomPicture(Dice& dice, const Layout& layout, bool hostile) {
  Picture picture = MakePicture(layout);
  const Content content = static_cast<Content>(dice.Below(static_cast<int32_t>(Content::kCount)));
  const bool wide = layout.depth == PixelDepth::k32 && dice.Chance(0.5f);
  const Channels flat = RandomChannels(dice, Content::kFeathered, wide);
  for (int32_t y = 0; y < layout.height; ++y) {
    for (int32_t x = 0; x < layout.width; ++x) {
      SetPixel(picture, x, y, content == Content::kFlat ? flat : RandomChannels(dice, content, wide));
    }
  }
  if (hostile) Spoil(dice, picture);
  return picture;
}

}  // namespace vantle::reference
