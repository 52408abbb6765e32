// The command line: one table of options per command, from which both the parser and the help are made.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace vantle::cli {

/// `value` names what follows the option ("N"), null for a switch. `shortName` may be null.
struct Option {
  const char* shortName;
  const char* name;
  const char* value;
  const char* group;
  const char* help;  ///< lines separated by \n
  bool repeats = false;
};

struct Command {
  const char* name;
  const char* summary;     ///< one line
  const char* usage;       ///< lines separated by \n, without the program's name
  const char* positional;  ///< what arguments without a dash are called; null for none
  size_t maxPositionals;
  const char* details;  ///< printed under the options; may be empty
  std::vector<Option> options;
};

/// What was given. Options are known by their long names, without dashes.
struct Arguments {
  std::vector<std::string> positionals;
  std::map<std::string, std::vector<std::string>> values;
};

/// Throws Failure (kUsage) for an unknown option (the nearest is offered), a missing value, an option given
/// twice, too many positionals. "--name=value" and "--name value" are the same; what follows an option that
/// takes a value is its value, also when it begins with a dash; "--" ends the options.
Arguments ParseArguments(const Command& command, const std::vector<std::string>& words);

bool Has(const Arguments& arguments, const std::string& name);
/// The option's value, or `otherwise`.
std::string ValueOf(const Arguments& arguments, const std::string& name, const std::string& otherwise = {});
/// The option's value as a whole number; Failure (kUsage) outside of the range.
int IntegerOf(const Arguments& arguments, const std::string& name, int otherwise, int lowest, int highest);

/// The help of one command: usage, options in aligned columns by group, details.
std::string HelpText(const Command& command);

}  // namespace vantle::cli
