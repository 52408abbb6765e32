#include "host/cli/sheet_label.h"

#include <cctype>

namespace vantle::cli {
namespace {

struct Glyph {
  char letter;
  const char* rows;  ///< seven rows of five
};

constexpr Glyph kGlyphs[] = {
    {'0', ".###.#...##..###.#.###..##...#.###."}, {'1', "..#...##....#....#....#....#...###."},
    {'2', ".###.#...#....#...#...#...#...#####"}, {'3', ".###.#...#....#..##.....##...#.###."},
    {'4', "...#...##..#.#.#..#.#####...#....#."}, {'5', "######....####.....#....##...#.###."},
    {'6', ".###.#....#....####.#...##...#.###."}, {'7', "#####....#...#...#...#....#....#..."},
    {'8', ".###.#...##...#.###.#...##...#.###."}, {'9', ".###.#...##...#.####....#....#.###."},
    {'A', ".###.#...##...#######...##...##...#"}, {'B', "####.#...##...#####.#...##...#####."},
    {'C', ".###.#...##....#....#....#...#.###."}, {'D', "####.#...##...##...##...##...#####."},
    {'E', "######....#....####.#....#....#####"}, {'F', "######....#....####.#....#....#...."},
    {'G', ".###.#...##....#.####...##...#.###."}, {'H', "#...##...##...#######...##...##...#"},
    {'I', ".###...#....#....#....#....#...###."}, {'J', "..###...#....#....#....#.#..#..##.."},
    {'K', "#...##..#.#.#..##...#.#..#..#.#...#"}, {'L', "#....#....#....#....#....#....#####"},
    {'M', "#...###.###.#.##.#.##...##...##...#"}, {'N', "#...###..##.#.##..###...##...##...#"},
    {'O', ".###.#...##...##...##...##...#.###."}, {'P', "####.#...##...#####.#....#....#...."},
    {'Q', ".###.#...##...##...##.#.##..#..##.#"}, {'R', "####.#...##...#####.#.#..#..#.#...#"},
    {'S', ".#####....#.....###.....#....#####."}, {'T', "#####..#....#....#....#....#....#.."},
    {'U', "#...##...##...##...##...##...#.###."}, {'V', "#...##...##...##...##...#.#.#...#.."},
    {'W', "#...##...##...##.#.##.#.###.###...#"}, {'X', "#...##...#.#.#...#...#.#.#...##...#"},
    {'Y', "#...##...#.#.#...#....#....#....#.."}, {'Z', "#####....#...#...#...#...#....#####"},
    {'-', "...............#####..............."}, {'.', "..............................##..."},
    {'_', "..............................#####"},
};

const char* RowsOf(char letter) {
  const char capital = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  for (const Glyph& glyph : kGlyphs)
    if (glyph.letter == capital) return glyph.rows;
  return nullptr;
}

void FillSquare(int32_t x, int32_t y, int32_t side, uint8_t grey, SheetImage* image) {
  for (int32_t v = y; v < y + side; ++v) {
    for (int32_t u = x; u < x + side; ++u) {
      if (u < 0 || v < 0 || u >= image->width || v >= image->height) continue;
      const size_t at =
          (static_cast<size_t>(v) * static_cast<size_t>(image->width) + static_cast<size_t>(u)) * 3;
      image->rgb[at] = image->rgb[at + 1] = image->rgb[at + 2] = grey;
    }
  }
}

}  // namespace

int32_t LabelWidth(const std::string& text, int32_t scale) {
  return text.empty() ? 0 : (static_cast<int32_t>(text.size()) * 6 - 1) * scale;
}

void DrawLabel(const std::string& text, int32_t x, int32_t y, int32_t scale, uint8_t grey,
               SheetImage* image) {
  for (size_t i = 0; i < text.size(); ++i) {
    const char* rows = RowsOf(text[i]);
    if (rows == nullptr) continue;
    const int32_t left = x + static_cast<int32_t>(i) * 6 * scale;
    for (int32_t cell = 0; cell < 35; ++cell)
      if (rows[cell] == '#') FillSquare(left + cell % 5 * scale, y + cell / 5 * scale, scale, grey, image);
  }
}

}  // namespace vantle::cli
