#include "host/io/json_file.h"

#include "host/io/failure.h"
#include "host/io/files.h"
#include "host/io/nearest.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <set>

namespace vantle::io {
namespace {

std::string Describe(const Json& value) {
  if (value.is_null()) return "null";
  if (value.is_object()) return "an object";
  if (value.is_array()) return "a list of " + std::to_string(value.size());
  std::string text = value.dump(-1, ' ', false, Json::error_handler_t::replace);
  if (text.size() > 60) text = text.substr(0, 57) + "...";
  return text;
}

// The parser's report reads "[json.exception.parse_error.101] parse error at line 3, column 5: ...".
std::string Shorten(const std::string& report) {
  const size_t at = report.find("at line");
  std::string text = at == std::string::npos ? report : report.substr(at + 3);
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text.size() > 160 ? text.substr(0, 157) + "..." : text;
}

// Notices keys given twice, of which the parser would silently keep the last.
struct KeyWatcher {
  std::vector<std::set<std::string>> open;
  std::string repeated;

  bool operator()(int, Json::parse_event_t event, Json& parsed) {
    if (event == Json::parse_event_t::object_start) open.emplace_back();
    if (event == Json::parse_event_t::object_end && !open.empty()) open.pop_back();
    if (event == Json::parse_event_t::key && !open.empty() && repeated.empty() &&
        !open.back().insert(parsed.get<std::string>()).second)
      repeated = parsed.get<std::string>();
    return true;
  }
};

}  // namespace

Json ReadJsonFile(const std::string& path) {
  const std::vector<std::byte> bytes = ReadWholeFile(path);
  const char* text = reinterpret_cast<const char*>(bytes.data());
  KeyWatcher watcher;
  Json document;
  try {
    document = Json::parse(text, text + bytes.size(),
                           [&watcher](int depth, Json::parse_event_t event, Json& parsed) {
                             return watcher(depth, event, parsed);
                           });
  } catch (const nlohmann::json::exception& error) {
    throw Failure(kUnreadableInput, path + ": is not valid JSON, " + Shorten(error.what()));
  }
  if (!watcher.repeated.empty())
    throw Failure(kUnreadableInput, path + ": the key \"" + watcher.repeated + "\" is given twice: keep one");
  if (!document.is_object())
    throw Failure(kUnreadableInput, path + ": expected an object { ... }, found " + Describe(document));
  return document;
}

bool ParseJsonText(const std::string& text, Json* value) {
  *value = Json::parse(text, nullptr, false);
  return !value->is_discarded();
}

std::string Place(const Node& node) {
  return node.path.empty() ? node.file : node.file + ": " + node.path;
}

void FailAt(const Node& node, const std::string& text) {
  throw Failure(kUnreadableInput, Place(node) + ": " + text);
}

void RefuseNode(const Node& node, const std::string& expected) {
  FailAt(node, "expected " + expected + ", found " + (node.value ? Describe(*node.value) : "nothing"));
}

bool IsPresent(const Node& node) {
  return node.value != nullptr;
}
bool IsNull(const Node& node) {
  return node.value != nullptr && node.value->is_null();
}

void RequireObject(const Node& node, std::initializer_list<const char*> keys) {
  if (node.value == nullptr || !node.value->is_object()) RefuseNode(node, "an object { ... }");
  const std::vector<std::string> known(keys.begin(), keys.end());
  for (const auto& [key, value] : node.value->items()) {
    if (std::find(known.begin(), known.end(), key) != known.end()) continue;
    const std::vector<std::string> near = NearestNames(key, known, 1);
    std::string all;
    for (const std::string& name : known) all += (all.empty() ? "" : ", ") + name;
    FailAt(node, "unknown key \"" + key + "\"" + (near.empty() ? "" : "; did you mean \"" + near[0] + "\"?") +
                     " (known: " + all + ")");
  }
}

Node Member(const Node& node, const char* key) {
  Node member{nullptr, node.file, node.path.empty() ? key : node.path + "." + key};
  const auto found = node.value->find(key);
  if (found != node.value->end()) member.value = &*found;
  return member;
}

Node RequiredMember(const Node& node, const char* key) {
  Node member = Member(node, key);
  if (!IsPresent(member)) FailAt(node, std::string("the key \"") + key + "\" is missing: add it");
  return member;
}

Node Element(const Node& node, size_t index) {
  return {&(*node.value)[index], node.file, node.path + "[" + std::to_string(index) + "]"};
}

std::vector<Node> Elements(const Node& node, const std::string& expected) {
  if (node.value == nullptr || !node.value->is_array()) RefuseNode(node, expected);
  std::vector<Node> elements;
  for (size_t i = 0; i < node.value->size(); ++i) elements.push_back(Element(node, i));
  return elements;
}

std::vector<std::pair<std::string, Node>> Members(const Node& node, const std::string& expected) {
  if (node.value == nullptr || !node.value->is_object()) RefuseNode(node, expected);
  std::vector<std::pair<std::string, Node>> members;
  for (const auto& [key, value] : node.value->items())
    members.emplace_back(key, Node{&value, node.file, node.path.empty() ? key : node.path + "." + key});
  return members;
}

double ShortestDecimal(float value) {
  char text[32];
  const auto [end, error] = std::to_chars(text, text + sizeof(text), value);
  double shortest = static_cast<double>(value);
  if (error == std::errc()) std::from_chars(text, end, shortest);
  return shortest;
}

double ReadNumber(const Node& node) {
  if (node.value == nullptr || !node.value->is_number()) RefuseNode(node, "a number");
  const double value = node.value->get<double>();
  if (!std::isfinite(value)) RefuseNode(node, "a finite number");
  return value;
}

int64_t ReadInteger(const Node& node, int64_t lowest, int64_t highest) {
  const std::string expected =
      "a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest);
  if (node.value == nullptr || !node.value->is_number()) RefuseNode(node, expected);
  const double value = node.value->get<double>();
  if (!(value >= static_cast<double>(lowest) && value <= static_cast<double>(highest)) ||
      value != std::floor(value))
    RefuseNode(node, expected);
  return static_cast<int64_t>(value);
}

bool ReadBool(const Node& node) {
  if (node.value == nullptr || !node.value->is_boolean()) RefuseNode(node, "true or false");
  return node.value->get<bool>();
}

std::string ReadText(const Node& node, const std::string& expected) {
  if (node.value == nullptr || !node.value->is_string()) RefuseNode(node, expected);
  return node.value->get<std::string>();
}

}  // namespace vantle::io
