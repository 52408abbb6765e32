#include "host/cli/sheet.h"

#include "host/cli/commands.h"
#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/image_file.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>

namespace vantle::cli {
namespace {

constexpr uint8_t kGround = 22;
constexpr uint8_t kCellGround = 10;
constexpr uint8_t kLabelGrey = 170;
constexpr int32_t kLabelScale = 2;

// Mean of the source pixels under one pixel of a smaller picture, laid over the cell's ground. Larger ones
// repeat pixels.
void ScaledPixel(const io::Picture& picture, int32_t x, int32_t y, int32_t width, int32_t height,
                 uint8_t* rgb) {
  const auto span = [](int32_t at, int32_t to, int32_t from) {
    const int32_t first = static_cast<int32_t>(int64_t{at} * from / to);
    return std::pair(first, std::max(first + 1, static_cast<int32_t>((int64_t{at} + 1) * from / to)));
  };
  const auto [x0, x1] = span(x, width, picture.width);
  const auto [y0, y1] = span(y, height, picture.height);
  double sum[3] = {0, 0, 0};
  for (int32_t v = y0; v < y1; ++v) {
    const std::byte* row = io::Row(picture, v);
    for (int32_t u = x0; u < x1; ++u) {
      const std::byte* at = row + static_cast<size_t>(u) * 4;
      const double alpha = std::to_integer<int>(at[0]) / 255.0;
      for (size_t c = 0; c < 3; ++c)
        sum[c] += std::to_integer<int>(at[c + 1]) * alpha + kCellGround * (1 - alpha);
    }
  }
  const double count = static_cast<double>(x1 - x0) * (y1 - y0);
  for (size_t c = 0; c < 3; ++c) rgb[c] = static_cast<uint8_t>(sum[c] / count + 0.5);
}

void DrawPicture(const io::Picture& picture, int32_t left, int32_t top, int32_t width, int32_t height,
                 SheetImage* sheet) {
  for (int32_t y = 0; y < height; ++y)
    for (int32_t x = 0; x < width; ++x)
      ScaledPixel(picture, x, y, width, height,
                  &sheet->rgb[(static_cast<size_t>(top + y) * static_cast<size_t>(sheet->width) +
                               static_cast<size_t>(left + x)) *
                              3]);
}

int32_t CellHeight(const io::Picture& picture, int32_t cellWidth) {
  const double height = static_cast<double>(cellWidth) * picture.height / picture.width;
  return std::clamp(static_cast<int32_t>(std::lround(height)), 1, io::kMaxEdge);
}

io::Picture AsPicture(const SheetImage& sheet) {
  io::Picture picture = io::MakePicture(sheet.width, sheet.height, PixelDepth::k8);
  for (size_t i = 0; i < sheet.rgb.size() / 3; ++i) {
    picture.pixels[i * 4] = std::byte{255};
    std::memcpy(&picture.pixels[i * 4 + 1], &sheet.rgb[i * 3], 3);
  }
  return picture;
}

}  // namespace

int32_t ChooseColumns(size_t count, double cellWidth, double cellHeight) {
  int32_t best = 1;
  double bestBadness = 1e300;
  for (int32_t columns = 1; columns <= static_cast<int32_t>(count); ++columns) {
    const double rows = std::ceil(static_cast<double>(count) / columns);
    const double empty = rows * columns - static_cast<double>(count);
    const double badness = std::fabs(std::log(columns * cellWidth / (rows * cellHeight) / (16.0 / 9.0))) +
                           6.0 * empty / static_cast<double>(count);
    if (badness < bestBadness + 1e-9) best = columns;
    bestBadness = std::min(bestBadness, badness);
  }
  return best;
}

std::string LabelOfFile(const std::string& path) {
  const std::string stem = std::filesystem::path(path).stem().string();
  const size_t end = stem.find_last_of("0123456789");
  if (end == std::string::npos) return stem;
  size_t begin = end;
  while (begin > 0 && stem[begin - 1] >= '0' && stem[begin - 1] <= '9') --begin;
  while (begin < end && stem[begin] == '0') ++begin;
  return stem.substr(begin, end + 1 - begin);
}

SheetImage ComposeSheet(const std::vector<SheetCell>& cells, const SheetLayout& layout) {
  int32_t cellHeight = 1;
  for (const SheetCell& cell : cells)
    cellHeight = std::max(cellHeight, CellHeight(cell.picture, layout.cellWidth));
  const int32_t labelSpace = layout.labels ? kLabelHeight * kLabelScale + 8 : 0;
  const auto rows = static_cast<int32_t>((cells.size() + static_cast<size_t>(layout.columns) - 1) /
                                         static_cast<size_t>(layout.columns));
  const int64_t width = int64_t{layout.columns} * (layout.cellWidth + layout.gap) + layout.gap;
  const int64_t height = int64_t{rows} * (cellHeight + labelSpace + layout.gap) + layout.gap;
  if (width > io::kMaxEdge || height > io::kMaxEdge)
    throw io::Failure(io::kUsage, "the sheet would be " + std::to_string(width) + " x " +
                                      std::to_string(height) + " pixels: lower --width or give fewer frames");
  SheetImage sheet{static_cast<int32_t>(width), static_cast<int32_t>(height), {}};
  sheet.rgb.assign(static_cast<size_t>(width) * static_cast<size_t>(height) * 3, kGround);
  for (size_t i = 0; i < cells.size(); ++i) {
    const auto column = static_cast<int32_t>(i) % layout.columns,
               row = static_cast<int32_t>(i) / layout.columns;
    const int32_t left = layout.gap + column * (layout.cellWidth + layout.gap);
    const int32_t top = layout.gap + row * (cellHeight + labelSpace + layout.gap);
    const int32_t own = CellHeight(cells[i].picture, layout.cellWidth);
    DrawPicture(cells[i].picture, left, top + (cellHeight - own) / 2, layout.cellWidth, own, &sheet);
    if (layout.labels)
      DrawLabel(cells[i].label, left + (layout.cellWidth - LabelWidth(cells[i].label, kLabelScale)) / 2,
                top + cellHeight + 8, kLabelScale, kLabelGrey, &sheet);
  }
  return sheet;
}

const Command& SheetCommand() {
  static const Command command{
      "sheet",
      "Puts pictures on one sheet, in a grid on a dark ground, each with its frame number.",
      "FRAME... -o SHEET.png [options]",
      "FRAME",
      10000,
      "",
      {{"-o", "output", "SHEET.png", "Output", "picture to write (.png or .exr)"},
       {"-y", "overwrite", nullptr, "Output", "overwrite a sheet that exists"},
       {nullptr, "columns", "N", "Layout", "pictures in a row (default: what comes near 16:9)"},
       {nullptr, "width", "PIXELS", "Layout", "width of each picture (default: 480)"},
       {nullptr, "gap", "PIXELS", "Layout", "space between pictures (default: 16)"},
       {nullptr, "plain", nullptr, "Layout", "no frame numbers"},
       {"-h", "help", nullptr, "Layout", "show this text"}}};
  return command;
}

int RunSheet(const Arguments& arguments) {
  if (arguments.positionals.empty())
    throw io::Failure(io::kUsage, "pictures are missing: vantle sheet FRAME... -o SHEET.png");
  const std::string output = ValueOf(arguments, "output");
  if (output.empty()) throw io::Failure(io::kUsage, "-o is missing: vantle sheet FRAME... -o SHEET.png");
  const io::OutputFormat format = io::FormatForName(output);
  if (!Has(arguments, "overwrite") && std::filesystem::exists(output))
    throw io::Failure(io::kOutputNotWritable, output + ": exists already; -y overwrites it");
  std::vector<SheetCell> cells;
  for (const std::string& path : arguments.positionals)
    cells.push_back({io::ReadPicture(path, PixelDepth::k8), LabelOfFile(path)});
  SheetLayout layout;
  layout.cellWidth = IntegerOf(arguments, "width", 480, 1, io::kMaxEdge);
  layout.gap = IntegerOf(arguments, "gap", 16, 0, 1000);
  layout.labels = !Has(arguments, "plain");
  layout.columns = IntegerOf(
      arguments, "columns",
      ChooseColumns(cells.size(), layout.cellWidth, CellHeight(cells[0].picture, layout.cellWidth)), 1, 1000);
  const io::Picture sheet = AsPicture(ComposeSheet(cells, layout));
  io::CreateFoldersFor(output);
  io::WriteFileAtomically(output, io::EncodePicture(io::View(sheet), format));
  return 0;
}

}  // namespace vantle::cli
