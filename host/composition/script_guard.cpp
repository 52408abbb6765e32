#include "host/composition/script_guard.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vantle::composition {
namespace {

enum class Before { kNothing, kOperand, kControl, kBrace, kStep, kOther };

enum class Bracket { kPlain, kCall, kControl, kWhile, kFor };

struct Open {
  Bracket kind = Bracket::kPlain;
  bool semicolon = false;
  size_t in = 0;  // where the object of a loop over keys begins
};

struct Insertion {
  size_t at;
  std::string text;
};

bool StartsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$';
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

template <size_t kCount>
bool IsOneOf(std::string_view word, const std::array<std::string_view, kCount>& words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

constexpr std::array<std::string_view, 3> kControls = {"if", "switch", "catch"};
constexpr std::array<std::string_view, 10> kOperators = {"return", "typeof", "instanceof", "in",    "of",
                                                         "new",    "delete", "void",       "throw", "case"};
constexpr std::array<std::string_view, 6> kStatements = {"do",    "else",     "finally",
                                                         "break", "continue", "debugger"};

// Goes through a script token by token and notes what must be put in where.
struct Scanner {
  std::string_view text;
  size_t at = 0;
  int line = 1;
  Before before = Before::kNothing;
  bool afterDot = false;
  std::string_view word;      // the name before this token, if there is one
  bool functionOpen = false;  // a closed pair of brackets may have been a function's arguments
  bool testPending = false;   // the next token begins the test of a `for`
  std::vector<Open> open;
  std::vector<Insertion> insertions;
  std::string problem;

  char Peek(size_t ahead = 0) const { return at + ahead < text.size() ? text[at + ahead] : '\0'; }
  bool Starts(std::string_view with) const { return text.substr(at, with.size()) == with; }
};

void Refuse(Scanner& scanner, const std::string& why) {
  if (scanner.problem.empty()) scanner.problem = why;
}

bool EndsLine(char c) {
  return c == '\n' || c == '\r';
}

void CountLine(Scanner& scanner) {
  const char c = scanner.text[scanner.at];
  if (c == '\n' || (c == '\r' && scanner.Peek(1) != '\n')) ++scanner.line;
}

void SkipBlockComment(Scanner& scanner) {
  scanner.at += 2;
  while (scanner.at < scanner.text.size() && !scanner.Starts("*/")) {
    CountLine(scanner);
    ++scanner.at;
  }
  if (scanner.at >= scanner.text.size()) return Refuse(scanner, "a comment does not end");
  scanner.at += 2;
}

// True when there was space or a comment.
bool SkipSpace(Scanner& scanner) {
  const char c = scanner.Peek();
  if (c == ' ' || c == '\t' || EndsLine(c)) {
    CountLine(scanner);
    ++scanner.at;
    return true;
  }
  if (scanner.Starts("//")) {
    while (scanner.at < scanner.text.size() && !EndsLine(scanner.Peek())) ++scanner.at;
    return true;
  }
  if (scanner.Starts("/*")) {
    SkipBlockComment(scanner);
    return true;
  }
  return false;
}

void ReadString(Scanner& scanner) {
  const char quote = scanner.text[scanner.at++];
  while (scanner.at < scanner.text.size() && scanner.Peek() != quote) {
    if (EndsLine(scanner.Peek())) return Refuse(scanner, "a text does not end on its line");
    if (scanner.Peek() == '\\') ++scanner.at;
    if (scanner.at < scanner.text.size()) {
      CountLine(scanner);
      ++scanner.at;
    }
  }
  if (scanner.at >= scanner.text.size()) return Refuse(scanner, "a text does not end");
  ++scanner.at;
  scanner.before = Before::kOperand;
}

void ReadNumber(Scanner& scanner) {
  while (StartsName(scanner.Peek()) || IsDigit(scanner.Peek()) || scanner.Peek() == '.') ++scanner.at;
  scanner.before = Before::kOperand;
}

void ReadName(Scanner& scanner) {
  const size_t start = scanner.at;
  while (StartsName(scanner.Peek()) || IsDigit(scanner.Peek())) ++scanner.at;
  const std::string_view name = scanner.text.substr(start, scanner.at - start);
  const bool afterBrace = scanner.before == Before::kBrace;
  if (name == kTickName || name == kKeysName) Refuse(scanner, "\"" + std::string(name) + "\" is taken");
  scanner.before = Before::kOperand;
  if (scanner.afterDot) return;
  // Without a `try` before it, `catch` is the name of an object's function.
  if (name == "catch" && !afterBrace) return;
  scanner.word = name;
  if (name == "with") Refuse(scanner, "\"with\" is not offered");
  if (IsOneOf(name, kOperators) || IsOneOf(name, kStatements)) scanner.before = Before::kOther;
  if (name == "in" && !scanner.open.empty() && scanner.open.back().kind == Bracket::kFor &&
      scanner.open.back().in == 0)
    scanner.open.back().in = scanner.at;
}

Bracket KindOfBracket(std::string_view word) {
  if (word == "while") return Bracket::kWhile;
  if (word == "for") return Bracket::kFor;
  return IsOneOf(word, kControls) ? Bracket::kControl : Bracket::kCall;
}

void OpenBracket(Scanner& scanner, std::string_view word) {
  Open opened;
  if (scanner.Peek() == '(') opened.kind = KindOfBracket(word);
  ++scanner.at;
  if (opened.kind == Bracket::kWhile)
    scanner.insertions.push_back({scanner.at, std::string(kTickName) + "(),"});

  // An object may name a function of its own `if`. No list of arguments begins like this.
  if (word == "if" || word == "switch") scanner.insertions.push_back({scanner.at, "0,"});
  scanner.open.push_back(opened);
  scanner.before = Before::kOther;
}

// A loop over keys asks once for all of its turns. What is neither that nor a loop with a test may be a
// function of that name.
void CloseFor(Scanner& scanner, const Open& closed) {
  if (closed.semicolon) return;
  if (closed.in == 0) return Refuse(scanner, "a \"for\" has neither a test nor keys to go through");
  scanner.insertions.push_back({closed.in, " " + std::string(kKeysName) + "(("});
  scanner.insertions.push_back({scanner.at, "))"});
}

void CloseBracket(Scanner& scanner) {
  const char c = scanner.Peek();
  Open closed;
  if (!scanner.open.empty()) {
    closed = scanner.open.back();
    scanner.open.pop_back();
  }
  if (c == ')' && closed.kind == Bracket::kFor) CloseFor(scanner, closed);
  ++scanner.at;
  scanner.functionOpen = c == ')' && closed.kind == Bracket::kCall;
  scanner.before = c == '}'                                    ? Before::kBrace
                   : c == ')' && closed.kind != Bracket::kCall ? Before::kControl
                                                               : Before::kOperand;
}

void OpenBrace(Scanner& scanner, bool ofFunction) {
  ++scanner.at;
  if (ofFunction) scanner.insertions.push_back({scanner.at, std::string(kTickName) + "();"});
  scanner.open.push_back({});
  scanner.before = Before::kOther;
}

void ReadSemicolon(Scanner& scanner) {
  if (!scanner.open.empty() && scanner.open.back().kind == Bracket::kFor && !scanner.open.back().semicolon) {
    scanner.open.back().semicolon = true;
    scanner.testPending = true;
  }
  ++scanner.at;
  scanner.before = Before::kOther;
}

void ReadSlash(Scanner& scanner) {
  if (scanner.before != Before::kOperand)
    return Refuse(scanner,
                  "a division stands here without what is divided (put that into brackets; regular "
                  "expressions are not offered)");
  ++scanner.at;
  scanner.before = Before::kOther;
}

void ReadOperator(Scanner& scanner) {
  if (scanner.Starts("<!--") || scanner.Starts("-->"))
    return Refuse(scanner, "write spaces between the signs of \"<!--\" and \"-->\"");
  const bool step = scanner.Starts("++") || scanner.Starts("--");
  constexpr std::string_view kSigns = "+-*%=<>!&|^~?:,.";
  if (kSigns.find(scanner.Peek()) == std::string_view::npos)
    return Refuse(scanner, "a sign that does not belong into an expression");
  scanner.at += step ? 2 : 1;
  scanner.before = step ? Before::kStep : Before::kOther;
}

// `for (;;)` asks in its test, also where that is empty.
void AskInTest(Scanner& scanner) {
  scanner.testPending = false;
  scanner.insertions.push_back({scanner.at, std::string(kTickName) + (scanner.Peek() == ';' ? "()" : "(),")});
}

void ReadToken(Scanner& scanner) {
  if (scanner.testPending) AskInTest(scanner);
  const char c = scanner.Peek();
  const std::string_view word = scanner.word;
  const bool ofFunction = scanner.functionOpen;
  scanner.word = {};
  scanner.functionOpen = false;
  const bool dot = c == '.' && !IsDigit(scanner.Peek(1));
  if (StartsName(c)) {
    ReadName(scanner);
  } else if (IsDigit(c) || (c == '.' && !dot)) {
    ReadNumber(scanner);
  } else if (c == '"' || c == '\'') {
    ReadString(scanner);
  } else if (c == '(' || c == '[') {
    OpenBracket(scanner, word);
  } else if (c == '{') {
    OpenBrace(scanner, ofFunction);
  } else if (c == ')' || c == ']' || c == '}') {
    CloseBracket(scanner);
  } else if (c == ';') {
    ReadSemicolon(scanner);
  } else if (c == '/') {
    ReadSlash(scanner);
  } else {
    ReadOperator(scanner);
  }
  scanner.afterDot = dot;
}

// Separators of lines and paragraphs end lines for the engine, but no editor shows them.
bool HasHiddenLineEnd(std::string_view text) {
  return text.find("\xE2\x80\xA8") != std::string_view::npos ||
         text.find("\xE2\x80\xA9") != std::string_view::npos;
}

std::string Insert(std::string_view text, std::vector<Insertion>& insertions) {
  std::stable_sort(insertions.begin(), insertions.end(),
                   [](const Insertion& a, const Insertion& b) { return a.at < b.at; });
  std::string result;
  size_t from = 0;
  for (const Insertion& insertion : insertions) {
    result += text.substr(from, insertion.at - from);
    result += insertion.text;
    from = insertion.at;
  }
  return result += text.substr(from);
}

}  // namespace

GuardedScript GuardScript(std::string_view script) {
  constexpr size_t kLongest = 65536;
  GuardedScript guarded;
  if (script.size() > kLongest) {
    guarded.message = "longer than 65536 characters";
    return guarded;
  }
  Scanner scanner;
  scanner.text = script;
  if (HasHiddenLineEnd(script)) Refuse(scanner, "holds a line separator that no editor shows");
  while (scanner.problem.empty() && scanner.at < script.size())
    if (!SkipSpace(scanner)) ReadToken(scanner);
  guarded.line = scanner.line;
  guarded.message = scanner.problem;
  guarded.ok = scanner.problem.empty();
  if (guarded.ok) guarded.text = Insert(script, scanner.insertions);
  return guarded;
}

}  // namespace vantle::composition
