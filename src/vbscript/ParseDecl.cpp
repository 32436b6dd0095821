// ParseDecl: declarations: Dim lists, Const, ReDim, procedures and classes. Locals
// become slots of the procedure's frame, fields slots of the instance, the rest
// names of the text that Resolve finds at its end.
#include "Parser.h"

namespace vbs::cmp {

// dim-list = name [ "(" [ bound { "," bound } ] ")" ] { "," name [ "(" [ bound { "," bound } ] ")" ] }
// Declares each name of a Dim, Public or Private; the bounds are constants.
void Parser::DimList() {
  for (;;) {
    int line = Cur().line, col = Cur().col;
    Tx name = Ident();
    std::vector<int32_t> ub;
    bool isArr = false;
    if (IsOp('(')) {
      isArr = true;
      Next();
      if (!IsOp(')')) {
        for (;;) {
          ub.push_back(ConstInt());
          if (!IsOp(',')) break;
          Next();
        }
      }
      WantOp(')', 1006);
    }
    DeclVar(name, isArr, ub, line, col);
    if (!IsOp(',')) break;
    Next();
  }
}

// Declares a name: a field when a class body is read, a name of the text at its top
// level (an array with bounds is made when its Dim runs), else a slot of the procedure.
void Parser::DeclVar(const Tx& name, bool isArr, const std::vector<int32_t>& ub, int line, int col) {
  if (C && P->kind == Proc::Global) {
    // a field of the class being read
    if (C->Find(name) >= 0) CompErr(1041, line, col);
    Member m;
    m.name = name;
    m.pub = fieldPub_;
    m.field = C->nfields++;
    m.isArr = isArr;
    m.ub = ub;
    C->byName[TxMaiVb(name)] = int(C->mems.size());
    C->mems.push_back(std::move(m));
    return;
  }
  if (P->kind == Proc::Global) {
    gdecl[TxMaiVb(name)] = 1;
    if (isArr && !ub.empty()) {
      // a script-level array with bounds is made when its Dim runs
      int from = Here();
      for (int32_t u : ub) Emit(oPushK, K(Value(u)));
      Peak(int(ub.size()));
      EmitName(oReDim, name, int32_t(ub.size()));
      Emit(oWord, 2);
      Mark(from, line, col);
    } else if (isArr) {
      Proc::ArrInit ai{mName, int32_t(refs.size()), ub};
      refs.push_back(NameRef{P, size_t(-1), name});
      P->arrays.push_back(ai);
    }
    return;
  }
  int s = DeclLocal(name);
  if (isArr) P->arrays.push_back(Proc::ArrInit{mLocal, s, ub});
}

// The slot of a local of the current procedure, made when new; a Function's result
// slot is skipped, so that a Dim of the function's own name is another slot.
int Parser::DeclLocal(const Tx& name) {
  for (size_t i = 0; i < P->slotNames.size(); ++i)
    if (EqNoCase(P->slotNames[i], name)) {
      if (int(i) == P->result) continue;
      return int(i);
    }
  P->slotNames.push_back(name);
  return P->nslots++;
}

// Declares a local for a ReDim unless the name is already a local, a member of the
// class or a global, of this text or of the engine.
void Parser::DeclLocalIfNew(const Tx& name) {
  for (auto& s : P->slotNames) if (EqNoCase(s, name)) return;
  if (P->cls && P->cls->Find(name) >= 0) return;
  if (E.FindCell(name) >= 0 || gdecl.count(TxMaiVb(name))) return;
  DeclLocal(name);
}

// const = "Const" name "=" expr { "," name "=" expr }
// Folds each value now; the name is a constant to the end of its procedure (or of the text).
void Parser::ConstDecl() {
  Next();
  for (;;) {
    Tx name = Ident();
    WantOp('=', 1011);
    Ex* e = Expr();
    Value v = Fold(e);
    consts[P][TxMaiVb(name)] = v;
    if (P->kind == Proc::Global && !C) gdecl[TxMaiVb(name)] = 2;
    if (!IsOp(',')) break;
    Next();
  }
}

// redim = "ReDim" [ "Preserve" ] name "(" expr { "," expr } ")" { "," name "(" expr { "," expr } ")" }
// The bounds are computed when it runs; the name is resolved like any other.
void Parser::ReDim() {
  Next();
  bool preserve = false;
  if (IsWord(u"Preserve")) { preserve = true; Next(); }
  for (;;) {
    Tx name = Ident();
    WantOp('(', 1005);
    int n = 0;
    for (;;) {
      Gen(Expr());
      ++n;
      if (!IsOp(',')) break;
      Next();
    }
    WantOp(')', 1006);
    // in a procedure ReDim declares a name only under Option Explicit; otherwise
    // an undeclared name is resolved as any other is when the statement runs:
    // the global of that name if one exists then, else the procedure's own
    if (P->kind != Proc::Global && !C && (explicit_ || E.explicit_)) DeclLocalIfNew(name);
    if (P->kind == Proc::Global && !P->cls) gdecl[TxMaiVb(name)] = 1;
    EmitName(oReDim, name, n);
    Emit(oWord, preserve ? 1 : 0);
    if (!IsOp(',')) break;
    Next();
  }
}

// proc = ( "Sub" | "Function" | "Property" ( "Get" | "Let" | "Set" ) ) name [ params ] { statement NL } "End" kind
// Compiles the body into a procedure of its own; its loops start afresh. A parameter
// is [ "ByVal" | "ByRef" ] name [ "(" ")" ], and a line may end after the header.
// Sub, Function or Property; in a class when C is set.
void Parser::ProcDecl(bool pub, bool dflt) {
  if (P->kind != Proc::Global) Fail(1024);
  Kw kind = Cur().kw;
  int line = Cur().line, col = Cur().col;
  Next();
  auto pr = std::make_unique<Proc>();
  Proc::Kind pk = kind == kSub ? Proc::Sub : Proc::Function;
  if (kind == kProperty) {
    if (IsWord(u"Get")) pk = Proc::PropGet;
    else if (IsWord(u"Let")) pk = Proc::PropLet;
    else if (IsKw(kSet)) pk = Proc::PropSet;
    else Fail(1049);
    Next();
  }
  pr->kind = pk;
  pr->pub = pub;
  pr->dflt = dflt;
  pr->name = Ident();
  pr->cls = C;
  if (IsOp('(')) {
    Next();
    if (!IsOp(')')) {
      for (;;) {
        bool byval = false;
        if (IsKw(kByVal)) { byval = true; Next(); }
        else if (IsKw(kByRef)) Next();
        Tx an = Ident();
        if (IsOp('(')) { Next(); WantOp(')', 1006); }
        for (auto& s : pr->slotNames) if (EqNoCase(s, an)) Fail(1041);
        pr->slotNames.push_back(an);
        pr->byval.push_back(byval);
        pr->anyByval = pr->anyByval || byval;
        ++pr->nargs;
        if (!IsOp(',')) break;
        Next();
      }
    }
    WantOp(')', 1006);
  }
  pr->nslots = pr->nargs;
  if (pk == Proc::Function || pk == Proc::PropGet) {
    pr->result = pr->nslots++;
    pr->slotNames.push_back(pr->name);
  }
  if ((pk == Proc::PropLet || pk == Proc::PropSet) && pr->nargs == 0) CompErr(1054, line, col);
  Proc* saved = P;
  P = pr.get();
  auto savedLoops = std::move(loops);
  loops.clear();
  SkipNl();  // a statement may follow the header on its line
  Kw endKw = kind;
  while (!AtEndOf(endKw)) {
    if (Cur().k == tEof) CompErr(kind == kSub ? 1016 : kind == kFunction ? 1015 : 1050, Cur().line, Cur().col);
    if (IsKw(kEnd) && Peek().k == tKw && (Peek().kw == kSub || Peek().kw == kFunction || Peek().kw == kProperty))
      Fail(kind == kSub ? 1016 : kind == kFunction ? 1015 : 1050);
    Statement();
    if (!AtEndOf(endKw)) EndStmt();  // "End Sub" may close the line of the last statement
  }
  Next();
  Next();
  Emit(oRet);
  P = saved;
  loops = std::move(savedLoops);
  Proc* raw = pr.get();
  U->procs.push_back(std::move(pr));
  if (C) {
    ClassMember(raw, line, col);
  } else {
    gdecl[TxMaiVb(raw->name)] = 3;
  }
}

// Enters a procedure read in a class as a member: Class_Initialize and Class_Terminate,
// the accessors of one property in one member, and the default. A name taken twice fails with 1041.
void Parser::ClassMember(Proc* pr, int line, int col) {
  if (EqNoCase(pr->name, u"Class_Initialize") || EqNoCase(pr->name, u"Class_Terminate")) {
    if (pr->nargs) CompErr(1053, line, col);
    if (EqNoCase(pr->name, u"Class_Initialize")) C->init = pr;
    else C->term = pr;
  }
  int m = C->Find(pr->name);
  if (m < 0) {
    m = int(C->mems.size());
    Member mm;
    mm.name = pr->name;
    C->mems.push_back(mm);
    C->byName[TxMaiVb(pr->name)] = m;
  }
  Member& mb = C->mems[m];
  if (mb.field >= 0) CompErr(1041, line, col);
  mb.pub = mb.pub && pr->pub;
  Proc** slot = nullptr;
  switch (pr->kind) {
    case Proc::Sub: case Proc::Function: slot = &mb.call; break;
    case Proc::PropGet: slot = &mb.get; break;
    case Proc::PropLet: slot = &mb.let; break;
    case Proc::PropSet: slot = &mb.set; break;
    default: break;
  }
  if (*slot || ((pr->kind == Proc::Sub || pr->kind == Proc::Function) && (mb.get || mb.let || mb.set)) ||
      (pr->kind >= Proc::PropGet && mb.call))
    CompErr(1041, line, col);
  *slot = pr;
  if (pr->dflt) {
    if (C->dflt >= 0 && C->dflt != m) CompErr(1052, line, col);
    C->dflt = m;
  }
}

// class = "Class" name NL { ( [ "Public" [ "Default" ] | "Private" ] ( proc | dim-list ) | "Dim" dim-list | const ) NL } "End" "Class"
// Reads a class's fields and procedures; the class is installed with the text.
void Parser::ClassDecl() {
  if (C || P->kind != Proc::Global) Fail(1024);
  Next();
  auto cl = std::make_unique<Class>();
  cl->name = Ident();
  C = cl.get();
  EndStmt();
  while (!(IsKw(kEnd) && Peek().k == tKw && Peek().kw == kClass)) {
    if (Cur().k == tEof) Fail(1047);
    bool pub = true, dflt = false, seen = false;
    if (IsKw(kPublic) || IsKw(kPrivate)) {
      pub = IsKw(kPublic);
      seen = true;
      Next();
      if (IsWord(u"Default")) {
        if (!pub) Fail(1057);
        dflt = true;
        Next();
      }
    }
    if (IsKw(kSub) || IsKw(kFunction) || PropHead()) {
      if (dflt && IsKw(kProperty) && !(Peek().k == tId && EqNoCase(Peek().s, u"Get"))) Fail(1058);
      ProcDecl(pub, dflt);
    } else if (dflt) {
      Fail(1056);
    } else if (IsKw(kDim) || seen) {
      if (IsKw(kDim)) Next();
      fieldPub_ = pub;
      DimList();
      fieldPub_ = true;
    } else if (IsKw(kConst)) {
      ConstDecl();
    } else {
      Fail(1024);
    }
    if (!AtEndOf(kClass)) EndStmt();
  }
  Next();
  Next();
  gdecl[TxMaiVb(C->name)] = 4;
  U->classes.push_back(std::move(cl));
  C = nullptr;
}

}  // namespace vbs::cmp
