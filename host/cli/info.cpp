#include "host/cli/commands.h"
#include "host/cli/parameter_report.h"
#include "host/cli/session.h"

#include <cstdio>

namespace vantle::cli {

const Command& InfoCommand() {
  static const Command command = [] {
    Command made{"info",
                 "Shows what the effect says of itself: registration, version, flags, about text, and every\n"
                 "parameter as it was declared.",
                 "[--json]",
                 nullptr,
                 0,
                 "",
                 ModuleOptions()};
    made.options.push_back({nullptr, "json", nullptr, "Output", "print JSON instead of a table"});
    made.options.push_back({"-h", "help", nullptr, "Output", "show this text"});
    return made;
  }();
  return command;
}

int RunInfo(const Arguments& arguments) {
  const std::unique_ptr<host::EffectInstance> effect = OpenSession(arguments);
  const host::CommandResult about = host::AskAbout(*effect);
  const std::string text =
      Has(arguments, "json")
          ? EffectReport(*effect, about.message).dump(2, ' ', false, io::Json::error_handler_t::replace) +
                "\n"
          : EffectTable(*effect, about.message);
  CloseSession(*effect);
  std::fwrite(text.data(), 1, text.size(), stdout);
  return 0;
}

}  // namespace vantle::cli
