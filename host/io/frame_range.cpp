#include "host/io/frame_range.h"

#include "host/io/failure.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string_view>
#include <system_error>

namespace vantle::io {
namespace {

constexpr int32_t kLastFrame = 1'000'000;

[[noreturn]] void Refuse(const std::string& text, const std::string& why) {
  throw Failure(kUsage,
                "frames \"" + text + "\": " + why + "; write them as 0-59, 1-100x2, 1,5,9-12 or -5--1");
}

// Takes a whole number with its sign from the front of `rest`.
int32_t TakeNumber(const std::string& text, std::string_view* rest) {
  int32_t value = 0;
  const auto [end, error] = std::from_chars(rest->data(), rest->data() + rest->size(), value);
  if (error == std::errc::invalid_argument)
    Refuse(text, rest->empty() ? "a number is missing"
                               : std::string("\"") + std::string(*rest) + "\" is not a number");
  if (error != std::errc() || value > kLastFrame || value < -kLastFrame)
    Refuse(text, "a frame number lies beyond 1000000");
  rest->remove_prefix(static_cast<size_t>(end - rest->data()));
  return value;
}

bool TakeSign(std::string_view* rest, char sign) {
  if (rest->empty() || rest->front() != sign) return false;
  rest->remove_prefix(1);
  return true;
}

void AppendItem(const std::string& text, std::string_view item, std::vector<int32_t>* frames) {
  const int32_t first = TakeNumber(text, &item);
  int32_t last = first, step = 1;
  if (TakeSign(&item, '-')) {
    last = TakeNumber(text, &item);
    if (TakeSign(&item, 'x')) step = TakeNumber(text, &item);
  }
  if (!item.empty()) Refuse(text, std::string("\"") + std::string(item) + "\" is left over");
  if (step < 1) Refuse(text, "the step must be at least 1");
  const int64_t direction = last >= first ? step : -int64_t{step};
  for (int64_t f = first; direction > 0 ? f <= last : f >= last; f += direction)
    frames->push_back(static_cast<int32_t>(f));
}

}  // namespace

std::vector<int32_t> ParseFrameRange(const std::string& text) {
  if (text.find(':') != std::string::npos) {
    std::string hint = text;
    std::replace(hint.begin(), hint.end(), ':', '-');
    Refuse(text, "ranges are written with \"-\", not \":\" (did you mean " + hint + "?)");
  }
  std::vector<int32_t> listed;
  std::string_view rest = text;
  for (;;) {
    const size_t comma = rest.find(',');
    AppendItem(text, rest.substr(0, comma), &listed);
    if (comma == std::string_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  std::vector<int32_t> frames;
  std::set<int32_t> seen;
  for (const int32_t frame : listed)
    if (seen.insert(frame).second) frames.push_back(frame);
  return frames;
}

NamePattern ParseNamePattern(const std::string& text) {
  NamePattern pattern;
  const auto setPlace = [&](int width, bool zeros) {
    if (pattern.hasNumber) throw Failure(kUsage, text + ": has two places for a frame number: keep one");
    pattern.hasNumber = true;
    pattern.width = width;
    pattern.padWithZeros = zeros;
  };
  for (size_t i = 0; i < text.size();) {
    std::string& part = pattern.hasNumber ? pattern.after : pattern.before;
    if (text[i] == '#') {
      const size_t end = std::min(text.find_first_not_of('#', i), text.size());
      setPlace(static_cast<int>(std::min<size_t>(end - i, 20)), true);
      i = end;
    } else if (text[i] == '%' && text.compare(i, 2, "%%") == 0) {
      part += '%';
      i += 2;
    } else if (text[i] == '%') {
      size_t end = i + 1;
      while (end < text.size() && text[end] >= '0' && text[end] <= '9') ++end;
      if (end >= text.size() || text[end] != 'd' || end - i > 3)
        throw Failure(kUsage, text + ": the frame number is written %d, %04d or ####; a per-cent sign is %%");
      setPlace(std::atoi(text.substr(i + 1, end - i - 1).c_str()), text[i + 1] == '0');
      i = end + 1;
    } else {
      part += text[i++];
    }
  }
  return pattern;
}

std::string NameOfFrame(const NamePattern& pattern, int32_t frame) {
  if (!pattern.hasNumber) return pattern.before;
  char number[128];
  std::snprintf(number, sizeof(number), pattern.padWithZeros ? "%0*d" : "%*d", pattern.width, frame);
  return pattern.before + number + pattern.after;
}

std::vector<int32_t> FindSequence(const NamePattern& pattern) {
  namespace fs = std::filesystem;
  std::vector<int32_t> frames;
  const fs::path shape(pattern.before + "0" + pattern.after);
  const fs::path folder = shape.parent_path().empty() ? fs::path(".") : shape.parent_path();
  const std::string before = fs::path(pattern.before + "0").filename().string();
  const std::string prefix = before.substr(0, before.size() - 1);
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    const std::string name = entry.path().filename().string();
    if (name.size() <= prefix.size() + pattern.after.size() || !name.starts_with(prefix) ||
        !name.ends_with(pattern.after))
      continue;
    const std::string digits = name.substr(prefix.size(), name.size() - prefix.size() - pattern.after.size());
    int32_t frame = 0;
    const size_t start = std::min(digits.find_first_not_of(' '), digits.size());
    const char* end = digits.data() + digits.size();
    const auto [at, failed] = std::from_chars(digits.data() + start, end, frame);
    if (failed == std::errc() && at == end && NameOfFrame(pattern, frame).ends_with(name))
      frames.push_back(frame);
  }
  std::sort(frames.begin(), frames.end());
  return frames;
}

}  // namespace vantle::io
