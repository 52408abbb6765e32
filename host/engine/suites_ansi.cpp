// The C library as hosts lend it to effects.
#include "host/engine/call_context.h"
#include "host/engine/suites.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace vantle::host {
namespace {

/// The one that can fail; the others are plain arithmetic and are not counted.
int HostSprintf(A_char* to, const A_char* format, ...) {
  const Entry entry = EnterHostCall("sprintf");
  if (entry.call == nullptr || entry.error != PF_Err_NONE || to == nullptr || format == nullptr) {
    return -1;
  }
  va_list arguments;
  va_start(arguments, format);
  // Through a pointer: the effect's format is nobody's literal, which compilers warn of by the function's
  // name.
  int (*const print)(char*, const char*, va_list) = std::vsprintf;
  const int written = print(to, format, arguments);
  va_end(arguments);
  return written;
}

}  // namespace

PF_ANSICallbacksSuite1 AnsiFunctions() {
  PF_ANSICallbacksSuite1 functions{};
  functions.atan = [](A_FpLong x) { return std::atan(x); };
  functions.atan2 = [](A_FpLong y, A_FpLong x) { return std::atan2(y, x); };
  functions.ceil = [](A_FpLong x) { return std::ceil(x); };
  functions.cos = [](A_FpLong x) { return std::cos(x); };
  functions.exp = [](A_FpLong x) { return std::exp(x); };
  functions.fabs = [](A_FpLong x) { return std::fabs(x); };
  functions.floor = [](A_FpLong x) { return std::floor(x); };
  functions.fmod = [](A_FpLong x, A_FpLong y) { return std::fmod(x, y); };
  functions.hypot = [](A_FpLong x, A_FpLong y) { return std::hypot(x, y); };
  functions.log = [](A_FpLong x) { return std::log(x); };
  functions.log10 = [](A_FpLong x) { return std::log10(x); };
  functions.pow = [](A_FpLong x, A_FpLong y) { return std::pow(x, y); };
  functions.sin = [](A_FpLong x) { return std::sin(x); };
  functions.sqrt = [](A_FpLong x) { return std::sqrt(x); };
  functions.tan = [](A_FpLong x) { return std::tan(x); };
  functions.sprintf = HostSprintf;
  functions.strcpy = [](A_char* to, const A_char* from) { return std::strcpy(to, from); };
  functions.asin = [](A_FpLong x) { return std::asin(x); };
  functions.acos = [](A_FpLong x) { return std::acos(x); };
  return functions;
}

void AddAnsiSuites(std::vector<SuiteEntry>& suites) {
  static const PF_ANSICallbacksSuite1 functions = AnsiFunctions();
  suites.push_back({kPF_ANSICallbacksSuite1Name, kPF_ANSICallbacksSuite1Version, &functions, true});
}

}  // namespace vantle::host
