// Makes a script interruptible: the engine offers no way to stop a running script, so that every turn of a
// loop and every call of a function is made to ask first.
#pragma once

#include <string>
#include <string_view>

namespace vantle::composition {

/// What the script calls on every turn: a function without arguments, and one that is given the object whose
/// keys a loop will go through and returns it.
inline constexpr const char* kTickName = "__vantleTick";
inline constexpr const char* kKeysName = "__vantleKeys";

/// The script with its questions, line numbers unchanged, or why it is refused.
struct GuardedScript {
  bool ok = false;
  std::string text;
  int line = 1;
  std::string message;
};

/// Refuses what would hide code from this look at it or run code that it has not seen: regular expressions,
/// `with`, escapes in names, comments in the manner of HTML. Grammar is the engine's business: a script that
/// is no JavaScript may pass and then fails there.
GuardedScript GuardScript(std::string_view script);

}  // namespace vantle::composition
