// What expressions can and cannot do.
#include "host/composition/script.h"

#include <gtest/gtest.h>

namespace vantle::composition {
namespace {

struct Scripts : testing::Test {
  void SetUp() override {
    composition.width = 1920;
    composition.height = 1080;
    composition.duration = 2.0;
    composition.frameDuration = 0.04;
    Layer flat = MakeLayer(composition, LayerKind::kNull, "flat");
    AddOnTop(composition, flat);
    Layer null = MakeLayer(composition, LayerKind::kNull, "Vantle A Ctrl");
    null.threeD = true;
    null.streams[kPosition] = Constant({960, 500, -30});
    null.streams[kScale] = Constant({110, 120, 130});
    null.streams[kRotationX] = Constant({1, 0, 0});
    null.streams[kRotationY] = Constant({2, 0, 0});
    null.streams[kRotationZ] = Constant({3, 0, 0});
    null.streams[kOrientation] = Constant({4, 5, 6});
    null.streams[kAnchorPoint] = Constant({7, 8, 9});
    null.streams[kOpacity] = Constant({55, 0, 0});
    AddOnTop(composition, null);
    Layer camera = MakeLayer(composition, LayerKind::kCamera, "eye");
    camera.streams[kZoom] = Constant({777, 0, 0});
    AddOnTop(composition, camera);
  }

  ScriptResult Run(const std::string& text, int dimensions = 1, const Numbers& own = {4, 5, 6}) {
    Evaluation evaluation;
    evaluation.composition = &composition;
    evaluation.seconds = 1.5;
    evaluation.budget = FreshBudget();
    return RunScript(evaluation, text, own, dimensions);
  }

  double Value(const std::string& text) {
    const ScriptResult result = Run(text);
    EXPECT_TRUE(result.ok) << text << ": " << result.message;
    return result.value[0];
  }

  std::string Failure(const std::string& text, int dimensions = 1) {
    const ScriptResult result = Run(text, dimensions);
    EXPECT_FALSE(result.ok) << text;
    return std::to_string(result.line) + " " + result.message;
  }

  Composition composition;
};

TEST_F(Scripts, SeeTheComposition) {
  const std::string null = "thisComp.layer(\"Vantle A Ctrl\").transform";
  EXPECT_EQ(Value(null + ".position[0] - thisComp.width/2"), 0);
  EXPECT_EQ(Value(null + ".position[1] - thisComp.height/2"), -40);
  EXPECT_EQ(Value(null + ".position[2]"), -30);
  EXPECT_EQ(Value(null + ".xRotation"), 1);
  EXPECT_EQ(Value(null + ".yRotation"), 2);
  EXPECT_EQ(Value(null + ".zRotation"), 3);
  EXPECT_EQ(Value(null + ".rotation"), 3);
  EXPECT_EQ(Value(null + ".scale[0]"), 110);
  EXPECT_EQ(Value(null + ".scale[1]"), 120);
  EXPECT_EQ(Value(null + ".scale[2]"), 130);
  EXPECT_EQ(Value(null + ".orientation[2]"), 6);
  EXPECT_EQ(Value(null + ".anchorPoint[1]"), 8);
  EXPECT_EQ(Value(null + ".opacity"), 55);
  EXPECT_EQ(Value("thisComp.layer(2).transform.opacity"), 55) << "by its place, the topmost is 1";
  EXPECT_EQ(Value("thisComp.layer('eye').cameraOption.zoom"), 777);
  EXPECT_EQ(Value("thisComp.numLayers"), 3);
  EXPECT_EQ(Value("thisComp.layer('flat').transform.position.length"), 2);
  EXPECT_EQ(Value("thisComp.layer('flat').name.length"), 4);
  EXPECT_EQ(Value("time"), 1.5);
  EXPECT_EQ(Value("thisComp.duration / thisComp.frameDuration"), 50);
  EXPECT_EQ(Value("value * 10"), 40);
}

TEST_F(Scripts, TheLastStatementGivesTheValue) {
  EXPECT_EQ(Value("var a = 2;\nvar b = 3;\na * b"), 6);
  EXPECT_EQ(Value("if (value > 3) 7; else 8"), 7);
  EXPECT_EQ(Value("function f(n) { return n < 2 ? 1 : n * f(n - 1) }\nf(5)"), 120);
  EXPECT_EQ(Value("var s = 0; for (var i = 0; i < 10; ++i) s += i; s"), 45);
  EXPECT_EQ(Value("var s = 0; var i = 4; while (i --\n> 0) s += i; s"), 6);
  EXPECT_EQ(Value("var s = 0; for (var k in {a: 1, b: 2}) s += 1; s"), 2);
  EXPECT_EQ(Value("var s = 0; do { s++ } while (s < 5); s"), 5);
  EXPECT_EQ(Value("var s = 0; for (var k in {a: 1}, {b: 2, c: 3}) s += 1; s"), 2) << "the last of the list";
  EXPECT_EQ(Value("switch (value) { case 4: 9; break; default: 8 }"), 9);
  EXPECT_EQ(Value("try { foo } catch (e) { 5 }"), 5);
  EXPECT_EQ(Value("({if: 3}).if"), 3);
  EXPECT_EQ(Value("Math.max(Math.sqrt(81), Math.PI)"), 9);
  EXPECT_EQ(Value("var l = []; l.push(3); l.push(4); l.pop() * l.length"), 4);
  EXPECT_EQ(Value("parseFloat('2.5') * 2"), 5);
}

TEST_F(Scripts, ListsGiveValuesOfSeveralDimensions) {
  const ScriptResult three = Run("[1, 2, 3]", 3);
  EXPECT_TRUE(three.ok);
  EXPECT_EQ(three.value, (Numbers{1, 2, 3}));
  const ScriptResult two = Run("[value[0] + 1, value[1]]", 3);
  EXPECT_TRUE(two.ok);
  EXPECT_EQ(two.value, (Numbers{5, 5, 6})) << "what is left out keeps its own value";
  EXPECT_EQ(Run("[1, 2, 3, 4]", 3).value, (Numbers{1, 2, 3}));
  EXPECT_EQ(Failure("5", 3), "1 gives 5 where a list of numbers is needed");
  EXPECT_EQ(Failure("[1]", 3), "1 gives a list where a list of numbers is needed");
  EXPECT_EQ(Failure("[1, 'a', 3]", 3), "1 gives a list where a list of numbers is needed");
}

TEST_F(Scripts, FailuresNameTheLine) {
  EXPECT_EQ(Failure("1 +\n foo"), "2 ReferenceError: identifier 'foo' undefined");
  EXPECT_EQ(Failure("var a = 1;\n\nthisComp.layer(\"gone\").transform"),
            "3 Error: there is no layer \"gone\"");
  EXPECT_EQ(Failure("thisComp.layer(0)"), "1 Error: there is no layer \"0\"");
  EXPECT_EQ(Failure("thisComp.layer(99)"), "1 Error: there is no layer \"99\"");
  EXPECT_EQ(Failure("thisComp.layer(0/0)"), "1 Error: there is no layer \"NaN\"");
  EXPECT_EQ(Failure("\n1 2").substr(0, 13), "2 SyntaxError");
  EXPECT_EQ(Failure("throw 5"), "1 5");
  EXPECT_EQ(Failure(""), "1 gives undefined where one number is needed");
  EXPECT_EQ(Failure("'5'"), "1 gives 5 where one number is needed");
  EXPECT_EQ(Failure("0/0"), "1 gives NaN where one number is needed");
  EXPECT_EQ(Failure("1/0"), "1 gives Infinity where one number is needed");
  EXPECT_EQ(Failure("[1]"), "1 gives a list where one number is needed");
  EXPECT_EQ(Failure("thisComp.layer('flat').transform.position[2]"),
            "1 gives undefined where one number is needed");
}

TEST_F(Scripts, EndlessOnesAreStopped) {
  // After a million turns, or on a slow machine after two seconds.
  const std::string stopped = "1 does not end: stopped after ";
  for (const char* text :
       {"while (1);", "for (;;);", "for (;;) {}", "do ; while (true)", "while (1) { value }",
        "function f() { return f() } f()", "(function f(n) { f(n); f(n) })(1)",
        "try { while (1); } catch (e) { 5 }",
        "while (1) { try { while (1); } catch (e) {} finally { while (1); } }",
        "function f(n) { return n < 2 ? n : f(n - 1) + f(n - 2) } f(60)",
        "var o = {get a() { return this.a }}; while (1) try { o.a } catch (e) {}",
        "throw {toString: function () { while (1); }}",
        "this['__vantle' + 'Tick'] = function () {}; while (1);",
        "delete this['__vantle' + 'Tick']; while (1);",
        "var s = {}; for (var i = 0; i < 3000; ++i) s[i] = i; for (var a in s) for (var b in s);"}) {
    const std::string failure = Failure(text);
    EXPECT_TRUE(failure.find(stopped) == 0 || failure == "1 RangeError: callstack limit")
        << text << ": " << failure;
  }
}

// Recursion of two calls a turn, sixty deep: the question must be in the function's body, whatever its name
// is.
TEST_F(Scripts, FunctionsOfAnyNameAreStopped) {
  const auto twice = [](const std::string& head, const std::string& call) {
    return "var d = 0; var o = {" + head + " { if (d > 60) return 1; d++; " + call + "; " + call +
           "; d--; return 1 }}; " + call;
  };
  EXPECT_EQ(Failure(twice("get f()", "o.f")).find("1 does not end: stopped after "), 0U);
  EXPECT_EQ(Failure(twice("get catch()", "o.catch")).find("1 does not end: stopped after "), 0U);
  EXPECT_EQ(Failure(twice("f(a)", "o.f()")).find("1 does not end: stopped after "), 0U);
  for (const char* name : {"if", "switch", "while"})
    EXPECT_EQ(
        Failure(twice("get " + std::string(name) + "()", "o." + std::string(name))).find("1 SyntaxError"), 0U)
        << name;
  EXPECT_EQ(Failure(twice("get for()", "o.for")), "1 a \"for\" has neither a test nor keys to go through");
}

TEST_F(Scripts, MemoryHasALimit) {
  const std::string limit = "1 needs more than 4 megabytes of memory";
  EXPECT_EQ(Failure("var s = 'a'; while (1) s += s;"), limit);
  EXPECT_EQ(Failure("var l = []; while (1) l.push([1, 2, 3, 4, 5, 6, 7, 8]);"), limit);
  EXPECT_EQ(Value("1"), 1) << "the next one starts afresh";
}

TEST_F(Scripts, DeepRecursionEndsWithAMessage) {
  EXPECT_NE(Failure("function f(n) { return 1 + f(n + 1) } f(0)").find("limit"), std::string::npos);
  std::string nested(30000, '(');
  EXPECT_FALSE(Run(nested + "1").ok);
}

TEST_F(Scripts, ReachNothingElse) {
  for (const char* name :
       {"eval",    "Function", "Date",  "RegExp",  "Object",     "Array",       "Proxy",
        "Reflect", "Duktape",  "JSON",  "Symbol",  "globalThis", "performance", "Uint8Array",
        "Buffer",  "require",  "print", "console", "String",     "Error"})
    EXPECT_EQ(Failure(name), "1 ReferenceError: identifier '" + std::string(name) + "' undefined");
  for (const char* text :
       {"Math.random()", "(function () {}).constructor('return 1')()",
        "[].constructor.constructor('return 1')()", "'a'.constructor.fromCharCode(1)",
        "(1).constructor.constructor('return 1')()", "[].sort()", "'a'.match('a')", "'a'.indexOf('a')",
        "[1].indexOf(1)", "Math.max.apply(null, [1])", "Math.max.call(0)",
        "thisComp.layer.constructor('return 1')()", "this.constructor.constructor('return 1')()",
        "var e; try { null.x } catch (q) { e = q } e.constructor.constructor('return 1')()",
        "({}).__proto__.constructor('return 1')()", "({}).__defineGetter__('a', 1)"})
    EXPECT_NE(Failure(text).find("TypeError"), std::string::npos) << text;
}

TEST_F(Scripts, LeaveNothingBehind) {
  EXPECT_EQ(Value("this.left = 5; Math.left = 6; thisComp.left = 7; 1"), 1);
  EXPECT_EQ(Failure("left").substr(0, 16), "1 ReferenceError");
  EXPECT_EQ(Failure("Math.left + 0"), "1 gives NaN where one number is needed");
  EXPECT_EQ(Value("thisComp.layer = 3; thisComp.width = 1; 1"), 1);
  EXPECT_EQ(Value("thisComp.width"), 1920);
}

TEST_F(Scripts, NamesMayHoldAnyText) {
  AddOnTop(composition, MakeLayer(composition, LayerKind::kNull, "Größe \"1\""));
  EXPECT_EQ(Value("thisComp.layer('Größe \"1\"').transform.opacity"), 100);
}

}  // namespace
}  // namespace vantle::composition
