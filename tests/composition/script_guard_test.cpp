// Every loop and every function is made to ask; nothing can hide from that.
#include "host/composition/script_guard.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace vantle::composition {
namespace {

/// The guarded text with short names: T for the question, K for the keys.
std::string Guarded(const std::string& script) {
  const GuardedScript guarded = GuardScript(script);
  if (!guarded.ok) return "line " + std::to_string(guarded.line) + ": " + guarded.message;
  std::string text = guarded.text;
  const auto shorten = [&](const std::string& name, const std::string& to) {
    for (size_t at = text.find(name); at != std::string::npos; at = text.find(name))
      text.replace(at, name.size(), to);
  };
  shorten(kTickName, "T");
  shorten(kKeysName, "K");
  return text;
}

TEST(ScriptGuard, LeavesPlainExpressionsAlone) {
  for (const char* script :
       {"", "1", "thisComp.layer(\"A\").transform.position[0] - thisComp.width/2", "a / b / c", "x = {in: 1}",
        "(a)/2", "a[0]/2", "\"while(1)\"", "'it\\'s for(;;)'", "1 /* while(1) */ // for(;;)", "a.while",
        "try { a } catch (e) { b }", "a++ + ++b", "i - -1", "0.5.toFixed(1)/2"})
    EXPECT_EQ(Guarded(script), script);
}

TEST(ScriptGuard, LoopsAsk) {
  EXPECT_EQ(Guarded("while(1);"), "while(T(),1);");
  EXPECT_EQ(Guarded("while /* x */ (a, b) {}"), "while /* x */ (T(),a, b) {}");
  EXPECT_EQ(Guarded("do x++; while (x)"), "do x++; while (T(),x)");
  EXPECT_EQ(Guarded("for(;;);"), "for(;T(););");
  EXPECT_EQ(Guarded("for(i=0;i<3;i++)x"), "for(i=0;T(),i<3;i++)x");
  EXPECT_EQ(Guarded("for(i=f(a,(b)); ;)x"), "for(i=f(a,(b)); T();)x");
  EXPECT_EQ(Guarded("for(var k in o)x"), "for(var k in K(( o)))x");
  EXPECT_EQ(Guarded("for(k in ('a' in b) ? c : d)x"), "for(k in K(( ('a' in b) ? c : d)))x");
  EXPECT_EQ(Guarded("for(a in b) for(c in d);"), "for(a in K(( b))) for(c in K(( d)));");
}

TEST(ScriptGuard, FunctionsAsk) {
  EXPECT_EQ(Guarded("function f(a, b) { return a }"), "function f(a, b) {T(); return a }");
  EXPECT_EQ(Guarded("(function(){})()"), "(function(){T();})()");
  EXPECT_EQ(Guarded("({get a() { return 1 }})"), "({get a() {T(); return 1 }})");
}

TEST(ScriptGuard, FunctionsAskWhateverTheirName) {
  EXPECT_EQ(Guarded("({f() { return 1 }})"), "({f() {T(); return 1 }})");
  EXPECT_EQ(Guarded("({in() {}, get catch() {}, catch(a) {}})"),
            "({in() {T();}, get catch() {T();}, catch(a) {T();}})");
  EXPECT_EQ(Guarded("a.if() / 2"), "a.if() / 2");

  // Where the name may also begin a statement, what is put in leaves no list of arguments.
  EXPECT_EQ(Guarded("if (a) { b } else { c }"), "if (0,a) { b } else { c }");
  EXPECT_EQ(Guarded("switch (x) { case 1: 2 }"), "switch (0,x) { case 1: 2 }");
  EXPECT_EQ(Guarded("({get while() {}})"), "({get while(T(),) {}})");
  EXPECT_EQ(Guarded("({get for() {}})"), "line 1: a \"for\" has neither a test nor keys to go through");
}

TEST(ScriptGuard, LinesStayWhereTheyAre) {
  const std::string script = "while(1)\n{\n}\nfor(;\n;)\n x";
  const std::string guarded = Guarded(script);
  EXPECT_EQ(std::count(guarded.begin(), guarded.end(), '\n'), 5);
}

TEST(ScriptGuard, RefusesWhatCouldHideCode) {
  const std::string division =
      "a division stands here without what is divided (put that into brackets; regular expressions are not "
      "offered)";
  EXPECT_EQ(Guarded("a = /\"/; while(1); //\""), "line 1: " + division);
  EXPECT_EQ(Guarded("if (a) /\"/; while(1); //\""), "line 1: " + division);
  EXPECT_EQ(Guarded("{}\n/\"/; while(1); //\""), "line 2: " + division);
  EXPECT_EQ(Guarded("return /\"/"), "line 1: " + division);
  for (const char* word : {"break", "continue", "debugger"})
    EXPECT_EQ(Guarded("while (1) { if (a) " + std::string(word) + "\n/'/; }"), "line 2: " + division) << word;
  EXPECT_EQ(Guarded("/a/"), "line 1: " + division);
  EXPECT_EQ(Guarded("a++ /\"/"), "line 1: " + division);
  EXPECT_EQ(Guarded("<!-- \"\nwhile(1); //\""),
            "line 1: write spaces between the signs of \"<!--\" and \"-->\"");
  EXPECT_EQ(Guarded("\n--> \""), "line 2: write spaces between the signs of \"<!--\" and \"-->\"");
  EXPECT_EQ(Guarded("with (a) b"), "line 1: \"with\" is not offered");
  EXPECT_EQ(Guarded("__vantleTick = 1"), "line 1: \"__vantleTick\" is taken");
  EXPECT_EQ(Guarded("function f(__vantleKeys) {}"), "line 1: \"__vantleKeys\" is taken");
  EXPECT_EQ(Guarded("wh\\u0069le(1);"), "line 1: a sign that does not belong into an expression");
  EXPECT_EQ(Guarded("1 // \xE2\x80\xA8 while(1);"), "line 1: holds a line separator that no editor shows");
  EXPECT_EQ(Guarded("`a`"), "line 1: a sign that does not belong into an expression");
  EXPECT_EQ(Guarded("#!a"), "line 1: a sign that does not belong into an expression");
}

TEST(ScriptGuard, RefusesWhatDoesNotEnd) {
  EXPECT_EQ(Guarded("'abc"), "line 1: a text does not end");
  EXPECT_EQ(Guarded("'abc\n'"), "line 1: a text does not end on its line");
  EXPECT_EQ(Guarded("'abc\\"), "line 1: a text does not end");
  EXPECT_EQ(Guarded("1\n/* abc"), "line 2: a comment does not end");
  EXPECT_EQ(Guarded(std::string(65537, ' ')), "line 1: longer than 65536 characters");
}

TEST(ScriptGuard, AnyBytesAreLookedAtWithoutHarm) {
  std::string signs = "(){}[];/*\"'\\\n whilefordoin.,+-0x";
  signs.push_back('\0');
  unsigned state = 1;
  for (int round = 0; round < 20000; ++round) {
    std::string script;
    for (int i = 0; i < 24; ++i) {
      state = state * 1664525U + 1013904223U;
      script.push_back(signs[(state >> 16) % signs.size()]);
    }
    const GuardedScript guarded = GuardScript(script);
    EXPECT_NE(guarded.ok, !guarded.message.empty());
  }
}

}  // namespace
}  // namespace vantle::composition
