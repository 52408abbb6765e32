// Frame numbers as the field writes them, and the file names that carry them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantle::io {

/// "1-100", "1-100x2", "1,5,9-12", "-5--1", "10-1" (downwards). Every frame once, in the order given. Throws
/// Failure (kUsage) that shows what was written and how it is written right; frame numbers lie within
/// plus and minus 1,000,000.
std::vector<int32_t> ParseFrameRange(const std::string& text);

/// A name with a place for the frame number: %d, %4d, %04d or #### (as %04d). %% stands for a per-cent sign.
struct NamePattern {
  std::string before;
  std::string after;
  bool hasNumber = false;
  bool padWithZeros = false;
  int width = 0;
};

/// Throws Failure (kUsage) for two number places or another % conversion.
NamePattern ParseNamePattern(const std::string& text);

/// The name of one frame. A minus sign counts into the width, as printf does.
std::string NameOfFrame(const NamePattern& pattern, int32_t frame);

/// Numbers for which the folder holds a file of that pattern, ascending.
std::vector<int32_t> FindSequence(const NamePattern& pattern);

}  // namespace vantle::io
