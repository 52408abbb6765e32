#include "host/cli/arguments.h"

#include "host/io/failure.h"
#include "host/io/nearest.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>

namespace vantle::cli {
namespace {

[[noreturn]] void Refuse(const Command& command, const std::string& why) {
  throw io::Failure(io::kUsage, why + "; see vantle " + command.name + " --help");
}

const Option* FindOption(const Command& command, const std::string& word) {
  for (const Option& option : command.options)
    if (std::string("--") + option.name == word || (option.shortName && option.shortName == word))
      return &option;
  return nullptr;
}

[[noreturn]] void RefuseUnknown(const Command& command, const std::string& word) {
  std::vector<std::string> known;
  for (const Option& option : command.options) known.push_back(std::string("--") + option.name);
  const std::vector<std::string> near = io::NearestNames(word, known, 1);
  Refuse(command, "unknown option " + word + (near.empty() ? "" : ", did you mean " + near[0] + "?"));
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// "-o, --output PATTERN"
std::string Signature(const Option& option) {
  std::string text = option.shortName ? std::string(option.shortName) + ", " : std::string("    ");
  text += std::string("--") + option.name;
  if (option.value) text += std::string(" ") + option.value;
  return text;
}

void AppendOptions(const Command& command, std::string* text) {
  constexpr size_t kColumn = 29;
  std::vector<std::string> groups;
  for (const Option& option : command.options)
    if (std::find(groups.begin(), groups.end(), option.group) == groups.end()) groups.push_back(option.group);
  for (const std::string& group : groups) {
    *text += "\n";
    *text += group;
    *text += "\n";
    for (const Option& option : command.options) {
      if (group != option.group) continue;
      std::string line = "  " + Signature(option);
      for (const std::string& help : Lines(option.help)) {
        if (line.size() + 1 > kColumn) {
          *text += line + "\n";
          line.clear();
        }
        line.resize(kColumn, ' ');
        *text += line + help + "\n";
        line.clear();
      }
    }
  }
}

}  // namespace

Arguments ParseArguments(const Command& command, const std::vector<std::string>& words) {
  Arguments arguments;
  bool optionsEnded = false;
  for (size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (optionsEnded || word.size() < 2 || word[0] != '-') {
      if (command.positional == nullptr || arguments.positionals.size() >= command.maxPositionals)
        Refuse(command, std::string("\"") + word + "\" is one argument too many");
      arguments.positionals.push_back(word);
      continue;
    }
    if (word == "--") {
      optionsEnded = true;
      continue;
    }
    const size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
    const std::string name = word.substr(0, equals);
    const Option* option = FindOption(command, name);
    if (option == nullptr) RefuseUnknown(command, name);
    std::vector<std::string>& given = arguments.values[option->name];
    if (!given.empty() && !option->repeats) Refuse(command, name + " is given twice");
    if (option->value == nullptr) {
      if (equals != std::string::npos) Refuse(command, name + " takes no value");
      given.emplace_back();
    } else if (equals != std::string::npos) {
      given.push_back(word.substr(equals + 1));
    } else {
      if (i + 1 == words.size()) Refuse(command, name + " needs a value: " + name + " " + option->value);
      given.push_back(words[++i]);
    }
  }
  return arguments;
}

bool Has(const Arguments& arguments, const std::string& name) {
  return arguments.values.contains(name);
}

std::string ValueOf(const Arguments& arguments, const std::string& name, const std::string& otherwise) {
  const auto found = arguments.values.find(name);
  return found == arguments.values.end() ? otherwise : found->second.back();
}

int IntegerOf(const Arguments& arguments, const std::string& name, int otherwise, int lowest, int highest) {
  if (!Has(arguments, name)) return otherwise;
  const std::string text = ValueOf(arguments, name);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < lowest || value > highest)
    throw io::Failure(io::kUsage, "--" + name + " takes a whole number from " + std::to_string(lowest) +
                                      " to " + std::to_string(highest) + ", found \"" + text + "\"");
  return value;
}

std::string HelpText(const Command& command) {
  std::string text;
  bool first = true;
  for (const std::string& line : Lines(command.usage)) {
    text += std::string(first ? "Usage: " : "       ") + "vantle " + command.name + " " + line + "\n";
    first = false;
  }
  text += std::string("\n") + command.summary + "\n";
  AppendOptions(command, &text);
  if (command.details[0] != '\0') text += std::string("\n") + command.details;
  return text;
}

}  // namespace vantle::cli
