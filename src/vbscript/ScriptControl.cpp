// ScriptControl: the host interface over the engine. Every call catches what the
// script raises and keeps it in Error().
#include "ScriptControl.h"
#include "Builtins.h"
#include "Engine.h"
#include "Locale.h"

namespace vbs {

namespace {

// The line `line` (1-based) of a text.
Tx LineOf(TxV text, int line) {
  size_t at = 0;
  for (int l = 1; l < line && at < text.size(); ++at)
    if (text[at] == '\n' || (text[at] == '\r' && !(at + 1 < text.size() && text[at + 1] == '\n'))) ++l;
  size_t end = at;
  while (end < text.size() && text[end] != '\r' && text[end] != '\n') ++end;
  return Tx(text.substr(at, end - at));
}

// The script's globals as an object's members.
class CodeObj : public Obj {
 public:
  explicit CodeObj(Engine* e) : e_(e) {}
  int Id(TxV name) override {
    int c = e_->FindCell(name);
    return c < 0 ? -1 : c + 1;
  }
  void Invoke(int id, Inv k, Args a, Value& r) override {
    if (id <= 0 || size_t(id) > e_->cells.size()) Raise(438);
    UseEngine use(e_);
    Cell& c = e_->cells[size_t(id - 1)];
    if (c.kind == Cell::Proc) {
      if (k == Inv::Let || k == Inv::Set) Raise(501);
      e_->CallProc(*c.proc, nullptr, a, r);
      return;
    }
    switch (k) {
      case Inv::Get: case Inv::Call: Index(c.v, a, Inv::Get, r); return;
      case Inv::Let: case Inv::Set: {
        if (c.kind == Cell::Const) Raise(501);
        if (c.kind == Cell::Undecl) c.kind = Cell::Var;
        Value v = a[a.n - 1];
        if (k == Inv::Set) SetTo(c.v, std::move(v)); else LetTo(c.v, std::move(v));
        return;
      }
    }
  }

 private:
  Engine* e_;
};

}  // namespace

ScriptControl::ScriptControl() : e_(std::make_unique<Engine>()) {}
ScriptControl::~ScriptControl() = default;

void ScriptControl::Reset() {
  e_->Reset();
  procs_.clear();
  err_.Clear();
}

long ScriptControl::Timeout() const { return e_->timeoutMs; }
void ScriptControl::Timeout(long ms) { e_->timeoutMs = ms < 0 ? -1 : ms; }
void ScriptControl::Pulse(std::function<bool()> f, long ms) {
  e_->pulse = std::move(f);
  e_->pulseEvery = std::chrono::milliseconds(ms > 0 ? ms : 1);
}
std::shared_ptr<HostPolicy> ScriptControl::Policy() const { return e_->policy; }
void ScriptControl::Policy(std::shared_ptr<HostPolicy> p) { e_->policy = std::move(p); }

// Runs f, turning what it raises into Error(); false when it raised.
template <class F>
static bool Guard(Engine& e, ScriptError& err, TxV text, F&& f) {
  err.Clear();
  UseEngine use(&e);
  try {
    e.StartClock();
    f();
    // a time-out that struck inside Class_Terminate stops the run all the same
    if (e.halted) throw Abort{};
    return true;
  } catch (Fault& x) {
    err.Number = x.num;
    err.Description = x.desc;
    bool comp = x.src == u"Microsoft VBScript compilation error";
    err.Source = x.src.empty() ? Tx(u"Microsoft VBScript runtime error") : x.src;
    err.Line = x.line;
    err.Column = x.col;
    if (comp && x.line > 0) err.Text = LineOf(text, x.line);
  } catch (Abort&) {
    err.Number = kErrTimeout;  // the operation was stopped
    err.Description = u"Script timeout: the script ran longer than the time allowed";
    err.Source = u"Microsoft VBScript runtime error";
    err.Line = e.haltLine;
  } catch (std::exception&) {
    err.Number = 7;
    err.Description = ErrDesc(7);
    err.Source = u"Microsoft VBScript runtime error";
  }
  e.err.num = err.Number;
  e.err.desc = err.Description;
  e.err.src = err.Source;
  return false;
}

bool ScriptControl::AddObject(TxV name, Ref<Obj> object, bool addMembers) {
  return Guard(*e_, err_, name, [&] {
    if (!object) Raise(424);
    Cell& c = e_->cells[size_t(e_->CellOf(name))];
    c.kind = Cell::Object;
    c.v = Value(object);
    e_->objNames.emplace_back(Tx(name), addMembers);
  });
}

bool ScriptControl::AddCode(TxV text) {
  return Guard(*e_, err_, text, [&] {
    auto u = e_->Compile(text, false, Scope{});
    Unit* raw = u.get();
    e_->Install(*raw);
    bool keep = !raw->procs.empty() || !raw->classes.empty();
    e_->units.push_back(std::move(u));
    procs_.clear();
    e_->RunMain(*raw->main);
    // a text that declared no procedure or class is not needed once it has run
    if (!keep && !e_->units.empty() && e_->units.back().get() == raw) e_->units.pop_back();
  });
}

bool ScriptControl::ExecuteStatement(TxV text) { return AddCode(text); }

bool ScriptControl::Eval(TxV text, Value& result) {
  return Guard(*e_, err_, text, [&] {
    auto u = e_->Compile(text, true, Scope{});
    Value r;
    e_->RunMain(*u->main, nullptr, nullptr, &r);
    result = std::move(r);
  });
}

bool ScriptControl::Run(TxV name, std::span<Value* const> args, Value& result) {
  return Guard(*e_, err_, name, [&] {
    int c = e_->FindCell(name);
    if (c < 0 || e_->cells[size_t(c)].kind != Cell::Proc) Raise(35);
    std::vector<Value> refs;
    refs.reserve(args.size());
    for (Value* v : args) refs.push_back(v ? Value::RefTo(v) : Value::Missing());
    Value r;
    e_->CallProc(*e_->cells[size_t(c)].proc, nullptr, Args{refs.data(), int(refs.size())}, r);
    result = std::move(r);
  });
}

const std::vector<ProcInfo>& ScriptControl::Procedures() const {
  if (procs_.empty() && !e_->procOrder.empty()) {
    for (const Proc* p : e_->procOrder)
      procs_.push_back(ProcInfo{p->name, p->nargs, p->kind == Proc::Function});
  }
  return procs_;
}

const ProcInfo* ScriptControl::Procedure(TxV name) const {
  for (const ProcInfo& p : Procedures())
    if (EqNoCase(p.Name, name)) return &p;
  return nullptr;
}

Ref<Obj> ScriptControl::CodeObject() { return Ref<Obj>(new CodeObj(e_.get())); }

}  // namespace vbs
