// Random pictures for layers, sprites and outputs.
#pragma once

#include "tests/reference/dice.h"
#include "tests/reference/picture.h"

namespace vantle::reference {

/// Odd sizes, padded, unaligned or bottom-up rows.
Layout RandomLayout(Dice& dice, int32_t largest);

/// Opaque, feathered, sparse, empty or flat; float pictures may leave 0..1, hostile ones hold infinities and
/// codes above the full one.
Picture RandomPicture(Dice& dice, const Layout& layout, bool hostile);

}  // namespace vantle::reference
