// JSON files with errors that a person can act on: file, place, what was found, what is expected.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace vantle::io {

using Json = nlohmann::ordered_json;

/// A value and where it stands. `value` is borrowed from the document.
struct Node {
  const Json* value = nullptr;
  std::string file;
  std::string path;  ///< such as layers[0].file; empty for the document itself
};

/// Parses a file. Syntax errors, a key given twice, and a document that is no object throw Failure
/// (kUnreadableInput) with line and column.
Json ReadJsonFile(const std::string& path);

/// Parses a text given on the command line; false when it is not JSON.
bool ParseJsonText(const std::string& text, Json* value);

/// "FILE: PLACE: expected EXPECTED, found WHAT IT IS".
[[noreturn]] void RefuseNode(const Node& node, const std::string& expected);
/// "FILE: PLACE: TEXT".
[[noreturn]] void FailAt(const Node& node, const std::string& text);

/// "FILE: PLACE".
std::string Place(const Node& node);

/// Throws unless `node` is an object whose keys are all among `keys`; names the first other key, and the
/// nearest allowed one.
void RequireObject(const Node& node, std::initializer_list<const char*> keys);

/// The member, or a node without value.
Node Member(const Node& node, const char* key);
/// The member; throws when it is missing.
Node RequiredMember(const Node& node, const char* key);
Node Element(const Node& node, size_t index);
bool IsPresent(const Node& node);
bool IsNull(const Node& node);

/// Elements of a list; throws for anything else.
std::vector<Node> Elements(const Node& node, const std::string& expected);
/// Keys and values of an object, in the order of the file.
std::vector<std::pair<std::string, Node>> Members(const Node& node, const std::string& expected);

/// The shortest decimal that means this float: 0.1 for 0.1f, not 0.10000000149011612.
double ShortestDecimal(float value);

/// Values of one type; anything else throws. Numbers must be finite.
double ReadNumber(const Node& node);
int64_t ReadInteger(const Node& node, int64_t lowest, int64_t highest);
bool ReadBool(const Node& node);
std::string ReadText(const Node& node, const std::string& expected);

}  // namespace vantle::io
