#include "host/io/nearest.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace vantle::io {
namespace {

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

}  // namespace

size_t EditDistance(const std::string& first, const std::string& second) {
  const std::string a = Lower(first), b = Lower(second);
  std::vector<std::vector<size_t>> d(a.size() + 1, std::vector<size_t>(b.size() + 1));
  for (size_t i = 0; i <= a.size(); ++i) d[i][0] = i;
  for (size_t j = 0; j <= b.size(); ++j) d[0][j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t replaced = d[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      d[i][j] = std::min({d[i - 1][j] + 1, d[i][j - 1] + 1, replaced});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        d[i][j] = std::min(d[i][j], d[i - 2][j - 2] + 1);
    }
  }
  return d[a.size()][b.size()];
}

std::vector<std::string> NearestNames(const std::string& name, const std::vector<std::string>& known,
                                      size_t count) {
  std::vector<std::pair<size_t, std::string>> rated;
  for (const std::string& candidate : known) {
    size_t distance = EditDistance(name, candidate);
    const bool contains = name.size() >= 3 && Lower(candidate).find(Lower(name)) != std::string::npos;
    if (contains) distance = std::min<size_t>(distance, 2);
    if (contains || distance * 2 <= std::max<size_t>(candidate.size(), 2))
      rated.emplace_back(distance, candidate);
  }
  std::stable_sort(rated.begin(), rated.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> names;
  for (const auto& [distance, candidate] : rated)
    if (names.size() < count && std::find(names.begin(), names.end(), candidate) == names.end())
      names.push_back(candidate);
  return names;
}

}  // namespace vantle::io
