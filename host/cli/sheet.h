// A sheet of pictures: a tidy grid on a dark ground.
#pragma once

#include "host/cli/sheet_label.h"
#include "host/io/picture.h"

#include <string>
#include <vector>

namespace vantle::cli {

struct SheetLayout {
  int32_t columns = 4;
  int32_t cellWidth = 480;
  int32_t gap = 16;
  bool labels = true;
};

/// A picture and what stands under it.
struct SheetCell {
  io::Picture picture;  ///< 8 bits
  std::string label;
};

/// Columns that come nearest to a sheet of 16:9 for `count` cells of the given shape.
int32_t ChooseColumns(size_t count, double cellWidth, double cellHeight);

/// Every picture is scaled to the cell's width, laid over the ground, and centred in rows as high as the
/// highest picture.
SheetImage ComposeSheet(const std::vector<SheetCell>& cells, const SheetLayout& layout);

/// "shot.0042.png" reads "42", a name without a number its stem.
std::string LabelOfFile(const std::string& path);

}  // namespace vantle::cli
