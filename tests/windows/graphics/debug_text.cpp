#include "tests/windows/graphics/debug_text.h"

#include <mutex>
#include <string_view>
#include <windows.h>

namespace vantle::test {

namespace {

constexpr DWORD kPrintException = 0x40010006;  // with the text's length, its end included, and its address
constexpr std::string_view kPrefix = "[Vantle GPU] ";

struct Heard {
  std::mutex mutex;
  std::vector<std::string> texts;
};

Heard& TheHeard() {
  static Heard heard;
  return heard;
}

LONG CALLBACK Listen(EXCEPTION_POINTERS* pointers) {
  const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
  if (record.ExceptionCode != kPrintException || record.NumberParameters < 2)
    return EXCEPTION_CONTINUE_SEARCH;
  const auto* const text = reinterpret_cast<const char*>(record.ExceptionInformation[1]);
  const std::string_view given(text, record.ExceptionInformation[0] - 1);
  if (given.starts_with(kPrefix)) {
    const std::lock_guard lock(TheHeard().mutex);
    TheHeard().texts.emplace_back(given);
  }
  return EXCEPTION_CONTINUE_EXECUTION;
}

}  // namespace

std::vector<std::string> TakeDebugTexts() {
  static const void* const listener = AddVectoredExceptionHandler(1, &Listen);
  const std::lock_guard lock(TheHeard().mutex);
  std::vector<std::string> texts;
  if (listener == nullptr) texts.emplace_back("nobody listens");
  texts.swap(TheHeard().texts);
  return texts;
}

}  // namespace vantle::test
