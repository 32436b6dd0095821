// The engine as a host drives it: host objects, Run, Procedures, errors, Reset.
#include <gtest/gtest.h>
#include "ScriptControl.h"

using namespace vbs;

namespace {

// What a call stopped by the time-out leaves in Error().Number.
constexpr int32_t kTimeoutErr = -2147467260;

// A host object: Twice(x) doubles its argument in place, Split(t, a, b) writes
// two out arguments, Name is a property with a default, Items are 1 2 3.
class Probe : public Obj {
 public:
  Tx name = u"probe";
  int calls = 0;
  int Id(TxV n) override { return NameIx(n, {"Twice", "Split", "Name", "Calls"}); }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    ++calls;
    switch (id) {
      case 1: a[0] = Value(ToDbl(a[0]) * 2); return;
      case 2: {
        Tx t = ToTx(a[0]);
        a[1] = Value(t.substr(0, 1));
        a[2] = Value(t.substr(1));
        r = Value(int16_t(1));
        return;
      }
      case 0: case 3:
        if (k == Inv::Let) name = ToTx(a[a.n - 1]);
        else r = Value(name);
        return;
      case 4: r = Value(int32_t(calls)); return;
    }
    Raise(438);
  }
  bool Items(std::vector<Value>& out) override {
    for (int i = 1; i <= 3; ++i) out.push_back(Value(int16_t(i)));
    return true;
  }
};

Tx EvalTx(ScriptControl& sc, TxV e) {
  Value v;
  EXPECT_TRUE(sc.Eval(e, v)) << zw::TxUtf8(sc.Error().Description);
  return ToTx(v);
}

}  // namespace

TEST(ScriptControl, HostObjectMembersAndArgumentsByReference) {
  ScriptControl sc;
  Ref<Probe> p(new Probe);
  ASSERT_TRUE(sc.AddObject(u"Probe", p));
  ASSERT_TRUE(sc.AddCode(u"Dim x, a, b, n\r\nx = 4 : Probe.Twice x\r\nn = Probe.Split(\"hello\", a, b)\r\n"
                         u"Probe.Name = \"renamed\"\r\nDim s : For Each i In Probe : s = s & i : Next"))
      << zw::TxUtf8(sc.Error().Description);
  EXPECT_EQ(EvalTx(sc, u"x"), u"8");                 // written back through the reference
  EXPECT_EQ(EvalTx(sc, u"a & \"|\" & b & \"|\" & n"), u"h|ello|1");
  EXPECT_EQ(p->name, u"renamed");
  EXPECT_EQ(EvalTx(sc, u"Probe"), u"renamed");        // the default member
  EXPECT_EQ(EvalTx(sc, u"PROBE.name"), u"renamed");   // names are case-blind
  EXPECT_EQ(EvalTx(sc, u"s"), u"123");
  // a value in parentheses is not written back
  ASSERT_TRUE(sc.ExecuteStatement(u"x = 1 : Probe.Twice (x)"));
  EXPECT_EQ(EvalTx(sc, u"x"), u"1");
  // an unknown member is error 438, and nothing escapes as an exception
  EXPECT_FALSE(sc.ExecuteStatement(u"Probe.Nope 1"));
  EXPECT_EQ(sc.Error().Number, 438);
  EXPECT_EQ(sc.Error().Line, 1);
}

TEST(ScriptControl, RunPassesArgumentsByReference) {
  ScriptControl sc;
  ASSERT_TRUE(sc.AddCode(u"Sub Inc(n)\r\n n = n + 1\r\nEnd Sub\r\n"
                         u"Sub Keep(ByVal n)\r\n n = 0\r\nEnd Sub\r\n"
                         u"Function Join3(a, b, c) : Join3 = a & b & c : End Function"));
  Value v(int16_t(41)), r;
  ASSERT_TRUE(sc.Run(u"inc", {&v}, r));
  EXPECT_EQ(ToLng(v), 42);
  EXPECT_TRUE(r.IsEmpty());
  ASSERT_TRUE(sc.Run(u"Keep", {&v}, r));
  EXPECT_EQ(ToLng(v), 42);
  Value a(u"x"), b(int16_t(1)), c(true);
  ASSERT_TRUE(sc.Run(u"JOIN3", {&a, &b, &c}, r));
  EXPECT_EQ(ToTx(r), u"x1True");
  // wrong count and unknown names fail with a readable error
  EXPECT_FALSE(sc.Run(u"Join3", {&a}, r));
  EXPECT_EQ(sc.Error().Number, 450);
  EXPECT_FALSE(sc.Run(u"Missing", {}, r));
  EXPECT_EQ(sc.Error().Number, 35);
  // a run-time error inside the procedure is reported with its line
  ASSERT_TRUE(sc.AddCode(u"Sub Bad()\r\n Dim z\r\n z = 1 / 0\r\nEnd Sub"));
  EXPECT_FALSE(sc.Run(u"Bad", {}, r));
  EXPECT_EQ(sc.Error().Number, 11);
  EXPECT_EQ(sc.Error().Description, u"Division by zero");
  EXPECT_EQ(sc.Error().Line, 3);
  EXPECT_EQ(sc.Error().Source, u"Microsoft VBScript runtime error");
  // success clears the error
  ASSERT_TRUE(sc.Run(u"Inc", {&v}, r));
  EXPECT_EQ(sc.Error().Number, 0);
}

TEST(ScriptControl, ProceduresInDeclarationOrder) {
  ScriptControl sc;
  ASSERT_TRUE(sc.AddCode(u"Function Zeta(a, b) : End Function\r\nSub alpha() : End Sub\r\n"
                         u"Class K\r\n Sub Hidden() : End Sub\r\nEnd Class"));
  ASSERT_TRUE(sc.AddCode(u"Sub Mid(x) : End Sub\r\nFunction zeta(a) : zeta = 1 : End Function"));
  const auto& ps = sc.Procedures();
  ASSERT_EQ(ps.size(), 3u);  // class methods are not procedures of the code
  EXPECT_EQ(ps[0].Name, u"zeta");  // redefined in place, keeping its position
  EXPECT_EQ(ps[0].NumArgs, 1);
  EXPECT_TRUE(ps[0].HasReturnValue);
  EXPECT_EQ(ps[1].Name, u"alpha");
  EXPECT_FALSE(ps[1].HasReturnValue);
  EXPECT_EQ(ps[2].Name, u"Mid");
  ASSERT_NE(sc.Procedure(u"ALPHA"), nullptr);
  EXPECT_EQ(sc.Procedure(u"ALPHA")->NumArgs, 0);
  EXPECT_EQ(sc.Procedure(u"none"), nullptr);
}

TEST(ScriptControl, CompileErrorAddsNothing) {
  ScriptControl sc;
  ASSERT_TRUE(sc.AddCode(u"Dim kept : kept = 1"));
  EXPECT_FALSE(sc.AddCode(u"Dim lost : lost = 2\r\nSub NotAdded()\r\n  x = (1 +\r\nEnd Sub\r\nkept = 5"));
  const ScriptError& e = sc.Error();
  EXPECT_EQ(e.Number, 1023);
  EXPECT_EQ(e.Description, u"Expected expression");
  EXPECT_EQ(e.Source, u"Microsoft VBScript compilation error");
  EXPECT_EQ(e.Line, 3);
  EXPECT_EQ(e.Text, u"  x = (1 +");
  EXPECT_TRUE(sc.Procedures().empty());
  EXPECT_EQ(EvalTx(sc, u"kept"), u"1");  // its statements did not run either
  EXPECT_EQ(EvalTx(sc, u"IsEmpty(lost)"), u"True");
  // a number of its own, beside the ones CompileErrorTest lists
  EXPECT_FALSE(sc.AddCode(u"Sub S(a)\r\nEnd Sub\r\nS(1, 2)"));
  EXPECT_EQ(sc.Error().Number, 1044);
  // an empty text is fine
  EXPECT_TRUE(sc.AddCode(u""));
}

TEST(ScriptControl, ResetDropsCodeVariablesAndObjects) {
  ScriptControl sc;
  Ref<Probe> p(new Probe);
  ASSERT_TRUE(sc.AddObject(u"Probe", p));
  ASSERT_TRUE(sc.AddCode(u"Dim v : v = 7\r\nFunction F() : F = 1 : End Function\r\nOption Explicit"));
  sc.Reset();
  EXPECT_TRUE(sc.Procedures().empty());
  Value r;
  EXPECT_TRUE(sc.Eval(u"IsEmpty(v)", r));  // Option Explicit went too
  EXPECT_TRUE(ToBool(r));
  EXPECT_FALSE(sc.Run(u"F", {}, r));
  EXPECT_FALSE(sc.ExecuteStatement(u"Probe.Twice 1"));
  EXPECT_EQ(sc.Error().Number, 424);
  // the host adds its objects again
  ASSERT_TRUE(sc.AddObject(u"Probe", p));
  EXPECT_TRUE(sc.ExecuteStatement(u"Dim q : q = 2 : Probe.Twice q"));
  EXPECT_EQ(EvalTx(sc, u"q"), u"4");
}

TEST(ScriptControl, EvalStatementsCodeObjectAndTimeout) {
  ScriptControl sc;
  EXPECT_EQ(EvalTx(sc, u"1 + 2 * 3"), u"7");
  ASSERT_TRUE(sc.ExecuteStatement(u"Dim g : g = \"text\""));
  EXPECT_EQ(EvalTx(sc, u"g & \"!\""), u"text!");
  Value r;
  EXPECT_FALSE(sc.Eval(u"FxRes=", r));  // a statement is not an expression
  EXPECT_EQ(sc.Error().Number, 1023);
  EXPECT_FALSE(sc.Eval(u"1 / 0", r));
  EXPECT_EQ(sc.Error().Number, 11);

  // the code object reads and writes globals and calls procedures
  ASSERT_TRUE(sc.AddCode(u"Function Sq(n) : Sq = n * n : End Function"));
  Ref<Obj> co = sc.CodeObject();
  int id = co->Id(u"G");
  ASSERT_GE(id, 0);
  Value got;
  co->Invoke(id, Inv::Get, Args{}, got);
  EXPECT_EQ(ToTx(got), u"text");
  Value nv(u"set from host");
  co->Invoke(id, Inv::Let, Args{&nv, 1}, got);
  EXPECT_EQ(EvalTx(sc, u"g"), u"set from host");
  Value n(int16_t(9));
  co->Invoke(co->Id(u"sq"), Inv::Call, Args{&n, 1}, got);
  EXPECT_EQ(ToLng(got), 81);

  // a loop that never ends is stopped by the timeout; -1 means no limit
  EXPECT_EQ(sc.Timeout(), -1);
  sc.Timeout(100);
  EXPECT_FALSE(sc.ExecuteStatement(u"On Error Resume Next\r\nDo : Loop"));
  EXPECT_EQ(sc.Error().Number, kTimeoutErr);
  sc.Timeout(-1);
  EXPECT_EQ(EvalTx(sc, u"g"), u"set from host");  // the engine is still usable
}

// When the script lets go of an object is checked by conformance/classes.vbs; an
// object the host holds outlives the script and ends when the host lets go.
TEST(ScriptControl, ClassTerminateWaitsForTheHostsReference) {
  ScriptControl sc;
  ASSERT_TRUE(sc.AddCode(u"Dim log\r\nClass T\r\n Sub Class_Terminate() : log = log & \"-\" : End Sub\r\nEnd Class"));
  Value held;
  ASSERT_TRUE(sc.Eval(u"New T", held)) << sc.Error().Number;
  EXPECT_EQ(TypeName(held), u"T");
  EXPECT_EQ(EvalTx(sc, u"log"), u"");
  held = Value();
  EXPECT_EQ(EvalTx(sc, u"log"), u"-");
}

TEST(ScriptControl, AddObjectWithMembersMakesThemGlobal) {
  ScriptControl sc;
  Ref<Probe> p(new Probe);
  ASSERT_TRUE(sc.AddObject(u"Probe", p, true));
  ASSERT_TRUE(sc.AddCode(u"Dim x : x = 5 : Twice x\r\nName = \"bare\"\r\nDim n : n = Name & Calls"))
      << zw::TxUtf8(sc.Error().Description);
  EXPECT_EQ(EvalTx(sc, u"x"), u"10");
  EXPECT_EQ(p->name, u"bare");
  EXPECT_EQ(EvalTx(sc, u"Left(n, 4)"), u"bare");
  EXPECT_EQ(EvalTx(sc, u"Probe.Name"), u"bare");  // still reachable by its name
}

// The time-out stops a script whatever it is doing: calls that branch without a
// loop, and a regular-expression search whose own budget is far from spent.
TEST(ScriptControl, TimeoutStopsCallsAndSearches) {
  ScriptControl sc;
  sc.Timeout(50);
  EXPECT_FALSE(sc.AddCode(u"On Error Resume Next\r\nSub T(n) : If n > 0 Then T n - 1 : T n - 1\r\nEnd Sub\r\nT 40"));
  EXPECT_EQ(sc.Error().Number, kTimeoutErr);
  EXPECT_FALSE(sc.AddCode(u"On Error Resume Next\r\nSet r = New RegExp : r.Pattern = \"(a|aa)*b\"\r\n"
                          u"x = r.Test(String(60, \"a\"))"));
  EXPECT_EQ(sc.Error().Number, kTimeoutErr);
  sc.Timeout(-1);
  Value r;
  ASSERT_TRUE(sc.Eval(u"1 + 1", r));
}

// The time-out is looked at by time, not only by counted steps: a short loop
// whose every step is long, long built-ins in code without any loop, and a
// time-out inside Class_Terminate all stop the script before it finishes.
TEST(ScriptControl, TimeoutStopsLongStepsBuiltinsAndTerminate) {
  ScriptControl sc;
  sc.Timeout(10);
  EXPECT_FALSE(sc.AddCode(u"On Error Resume Next\r\n"
                          u"For i = 1 To 3000 : x = Replace(Space(200000), \" \", \"ab\") : Next\r\n"
                          u"done1 = True"));
  EXPECT_EQ(sc.Error().Number, kTimeoutErr);
  EXPECT_FALSE(sc.AddCode(u"On Error Resume Next\r\nx = Space(4000000)\r\n"
                          u"x = Replace(x, \" \", \"ab\") : x = Replace(x, \"ab\", \"c\")\r\n"
                          u"x = Replace(x, \"c\", \"ab\") : x = Replace(x, \"ab\", \"c\")\r\n"
                          u"y = Join(Split(x, \"c\"), \"de\") : y = y & y : y = y & y\r\n"
                          u"x = String(40000000, \"z\") : n = InStr(x, \"q\")\r\n"
                          u"done2 = True"));
  EXPECT_EQ(sc.Error().Number, kTimeoutErr);
  EXPECT_FALSE(sc.AddCode(u"On Error Resume Next\r\n"
                          u"Class T\r\n Sub Class_Terminate : Do : Loop : End Sub\r\nEnd Class\r\n"
                          u"Set t = New T : Set t = Nothing\r\ndone3 = True"));
  EXPECT_EQ(sc.Error().Number, kTimeoutErr);
  sc.Timeout(-1);
  EXPECT_EQ(EvalTx(sc, u"IsEmpty(done1) & IsEmpty(done2) & IsEmpty(done3)"), u"TrueTrueTrue");
  // a Class_Terminate that runs after the stop is cut short too, and the engine
  // runs the next call normally
  EXPECT_TRUE(sc.AddCode(u"Set t = Nothing : x = Empty : y = Empty : done4 = True"));
  EXPECT_EQ(EvalTx(sc, u"done4"), u"True");
}

// A host policy that answers for CreateObject, GetObject and the boxes, noting
// each call with the line Where() gives.
class Guarda : public HostPolicy {
 public:
  std::vector<Tx> log;
  Ref<Obj> Object(TxV id, TxV path, bool get) override {
    Nota((get ? u"get " : u"new ") + Tx(id) + u"|" + Tx(path));
    if (EqNoCase(id, u"Scripting.Dictionary")) return {};  // made as usual
    return Ref<Obj>(new Probe);
  }
  bool MsgBox(TxV p, TxV, int32_t style, int32_t& r) override {
    Nota(u"box " + Tx(p));
    r = style == 4 ? 7 : 1;
    return true;
  }
  bool InputBox(TxV p, TxV, TxV d, Value& r) override {
    Nota(u"ask " + Tx(p));
    r = Value(d);
    return true;
  }

 private:
  void Nota(const Tx& t) {
    Site s = Where();
    log.push_back(t + u"@" + zw::TxAsc(std::to_string(s.Line)) + (s.Text ? u"" : u"?"));
  }
};

TEST(ScriptControl, HostPolicyAnswersForWhatReachesOutside) {
  ScriptControl sc;
  auto g = std::make_shared<Guarda>();
  sc.Policy(g);
  sc.Reset();  // kept across a reset
  ASSERT_EQ(sc.Policy(), g);
  ASSERT_TRUE(sc.AddCode(u"Function Pede()\r\n"
                         u"  Pede = InputBox(\"name?\", \"t\", \"Ana\")\r\n"
                         u"End Function\r\n"
                         u"Set sh = CreateObject(\"WScript.Shell\")\r\n"
                         u"Set d = CreateObject(\"Scripting.Dictionary\")\r\n"
                         u"Set o = GetObject(\"winmgmts:\")\r\n"
                         u"r = MsgBox(\"go?\", 4)\r\n"
                         u"n = Pede()"))
      << zw::TxUtf8(sc.Error().Description);
  EXPECT_EQ(EvalTx(sc, u"TypeName(sh) & TypeName(d) & TypeName(o)"), u"ObjectDictionaryObject");
  EXPECT_EQ(EvalTx(sc, u"r & n"), u"7Ana");
  // lines are those of the text each statement came from: the procedure's own
  // line for the box asked inside it
  std::vector<Tx> want = {u"new WScript.Shell|@4", u"new Scripting.Dictionary|@5", u"get |winmgmts:@6",
                          u"box go?@7", u"ask name?@2"};
  EXPECT_EQ(g->log, want);
  EXPECT_EQ(Where().Line, 0);  // nothing runs now
  // without a policy an unknown object fails as before
  sc.Policy(nullptr);
  EXPECT_FALSE(sc.ExecuteStatement(u"Set x = GetObject(\"winmgmts:\")"));
  EXPECT_EQ(sc.Error().Number, 429);
}

TEST(ScriptControl, TimeoutTellsTheLineItStoppedAt) {
  ScriptControl sc;
  sc.Timeout(50);
  ASSERT_TRUE(sc.AddCode(u"Sub Gira()\r\n  Do\r\n    n = n + 1\r\n  Loop\r\nEnd Sub"));
  EXPECT_FALSE(sc.ExecuteStatement(u"x = 1\r\nx = 2\r\nx = 3\r\nx = 4\r\nGira"));
  EXPECT_EQ(sc.Error().Number, kErrTimeout);
  EXPECT_GE(sc.Error().Line, 2);  // inside the loop of Gira, not the caller's line 5
  EXPECT_LE(sc.Error().Line, 4);
  EXPECT_TRUE(sc.ExecuteStatement(u"y = 2"));
  EXPECT_EQ(sc.Error().Line, 0);
}

// The host's pulse runs while a call runs, without a time-out too; its false
// stops the call as a time-out does; a Reset keeps it and an empty one ends it.
TEST(ScriptControl, PulseRunsDuringCallsAndMayStopThem) {
  ScriptControl sc;
  int n = 0;
  sc.Pulse([&] { return ++n < 5; }, 1);
  ASSERT_TRUE(sc.AddCode(u"Dim i\nSub Curto\n i = 1\nEnd Sub"));
  EXPECT_FALSE(sc.ExecuteStatement(u"Do\n i = i + 1\nLoop"));
  EXPECT_EQ(sc.Error().Number, kTimeoutErr);
  EXPECT_EQ(n, 5);
  sc.Reset();
  n = 0;
  EXPECT_FALSE(sc.ExecuteStatement(u"Do : Loop"));
  EXPECT_EQ(n, 5);
  sc.Pulse(nullptr, 1);
  n = 0;
  EXPECT_TRUE(sc.ExecuteStatement(u"For i = 1 To 200000 : Next"));
  EXPECT_EQ(n, 0);
}
