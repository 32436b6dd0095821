// zunwiz-run's answers: the lines read, and asked for as the run needs them.
#include "RunRsp.h"
#include <QPushButton>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <vector>
#include "CtlQt.h"
#include "RunPag.h"
#include "RunTrc.h"
#include "SupWiz.h"
#include "TxtGlb.h"
#include "ZunWizMain.h"

namespace zw {

namespace {
// The words of a line, split at blanks and tabs.
std::vector<Tx> Palavras(TxV t) {
  std::vector<Tx> r;
  size_t i = 0;
  while (i < t.size()) {
    while (i < t.size() && (t[i] == u' ' || t[i] == u'\t')) i++;
    size_t j = i;
    while (j < t.size() && t[j] != u' ' && t[j] != u'\t') j++;
    if (j > i) r.emplace_back(t.substr(i, j - i));
    i = j;
  }
  return r;
}

// A whole word as a number that an int holds; false when it is not one, so that
// "BOX 4294967297" is no answer rather than BOX 1.
bool Inteiro(const Tx& w, int& n) {
  std::string s = TxUtf8(w);
  char* fim = nullptr;
  errno = 0;
  long long v = std::strtoll(s.c_str(), &fim, 10);
  if (s.empty() || *fim || errno == ERANGE || v < INT_MIN || v > INT_MAX) return false;
  n = int(v);
  return true;
}

// The longest answer line; no answer comes near it.
constexpr size_t kRunLinMax = 1 << 20;

// One line of answers, at most kRunLinMax bytes: standard input that never ends a
// line (/dev/zero) gives a line too long rather than a read for ever. False at the
// end of the answers.
bool RunLinLer(std::istream& in, std::string& s, bool& longa) {
  s.clear();
  longa = false;
  std::streambuf* sb = in.rdbuf();
  for (;;) {
    int c = sb->sbumpc();
    if (c == std::char_traits<char>::eof()) return !s.empty();
    if (c == '\n') return true;
    if (s.size() >= kRunLinMax) {
      longa = true;
      return true;
    }
    s += char(c);
  }
}

// A text to stderr at once: the person at the terminal reads it before typing.
void Diz(const std::string& m) {
  std::fputs(m.c_str(), stderr);
  std::fflush(stderr);
}
}  // namespace

bool RunRspLer(const Tx& linha, RunRsp& r, Tx& erro) {
  Tx t = linha;
  while (!t.empty() && (t.back() == u'\r' || t.back() == u'\n')) t.pop_back();
  std::vector<Tx> p = Palavras(t);
  if (p.empty() || p[0][0] == u'#') return false;
  erro.clear();
  r = RunRsp{};
  const Tx w = TxMai(p[0]);
  static const struct { const char16_t* pal; const char16_t* btn; } botoes[] = {
      {u"ANT", u"cmAnt"}, {u"SEG", u"cmSeg"}, {u"CNF", u"cmCnf"}, {u"CAN", u"cmCan"}};
  for (const auto& b : botoes)
    if (w == b.pal) {
      r.k = RunRsp::K::Btn;
      r.nome = b.btn;
      if (p.size() > 1) erro = u"a click takes no more words";
      return true;
    }
  if (w == u"HELP" || w == u"?") {
    r.k = RunRsp::K::Ajuda;
  } else if (w == u"CLOSE") {
    r.k = RunRsp::K::Close;
    if (p.size() > 1) erro = u"CLOSE takes no more words";
  } else if (w == u"BOX") {
    r.k = RunRsp::K::Box;
    if (p.size() != 2 || !Inteiro(p[1], r.num)) erro = u"BOX takes one result word: 1, 0 or -1";
  } else if (w == u"INPUT") {
    // The text is the rest of the line after the word and one blank, as typed.
    r.k = RunRsp::K::Input;
    size_t i = t.find(p[0]) + p[0].size();
    r.can = i >= t.size();
    if (!r.can) r.tx = t.substr(i + 1);
  } else if (w == u"CHECK" || w == u"OPTION") {
    r.k = w == u"CHECK" ? RunRsp::K::Check : RunRsp::K::Option;
    if (p.size() != 3 || !Inteiro(p[2], r.num)) erro = w + u" takes a component's name and a number";
    else if (r.k == RunRsp::K::Check && r.num != 0 && r.num != 1) erro = u"CHECK takes 0 or 1";
    else r.nome = p[1];
  } else {
    erro = u"no such answer: " + p[0];
  }
  return true;
}

const RunRsp* RunFon::Prox() {
  if (mProx) return &*mProx;
  std::string s;
  bool longa = false;
  while (!mFim && RunLinLer(mIn, s, longa)) {
    mLin++;
    // Editors on some systems begin a UTF-8 file with a byte-order mark.
    if (mLin == 1 && s.rfind("\xEF\xBB\xBF", 0) == 0) s.erase(0, 3);
    RunRsp r;
    if (longa) {
      mErro = u"a line longer than " + TxDeUtf8(std::to_string(kRunLinMax)) + u" bytes is no answer";
      r.lin = mLin;
      mProx = r;
      return &*mProx;
    }
    if (RunRspLer(TxDeUtf8(s), r, mErro)) {
      r.lin = mLin;
      mProx = r;
      return &*mProx;
    }
  }
  mFim = true;
  return nullptr;
}

const RunRsp* RunPer::Prox(const std::function<std::string()>& ajuda) {
  for (;;) {
    const RunRsp* r = mFon->Prox();
    if (!r) return r;
    if (r->k == RunRsp::K::Ajuda) {
      if (!mTerm) Desajuste(u"help is an answer at a terminal only", r->lin);
      Diz((ajuda ? ajuda() : PagAjuda()) + "> ");
      mFon->Toma();
      continue;
    }
    if (mFon->Erro().empty()) return r;
    if (!mTerm) Desajuste(mFon->Erro(), r->lin);
    Diz("zunwiz-run: " + TxUtf8(mFon->Erro()) + " (help or ? lists the answers)\n> ");
    mFon->Toma();
  }
}

void RunPer::Prompt(const char* o_que, const Tx& caixa) const {
  if (!mTerm) return;
  std::string m = "zunwiz-run " + (mPag.Idx() ? TxUtf8(mPag.Nome()) : std::string()) + " " + o_que;
  if (!caixa.empty()) m += " " + TxUtf8(caixa);
  Diz(m + "> ");
}

void RunPer::Desajuste(const Tx& porque, int lin) const {
  mTrc.Lin(u"end answers");
  RunSai(kSaiRsp, "answers line " + std::to_string(lin) + ", " +
                      (mPag.Idx() ? TxUtf8(mPag.Nome()) : std::string("before the first page")) + ": " +
                      TxUtf8(porque));
}

void RunPer::Sobra(const Tx& quando) {
  if (!mTerm)
    if (const RunRsp* r = Prox()) Desajuste(u"answers are left over when " + quando, r->lin);
}

// The answers that fit the page in view: the buttons a person could click, the
// close box, and the check boxes and option groups in view and enabled, each
// component by the name the engine finds it under (the first of a name).
std::string RunPer::PagAjuda() const {
  std::string r = "answers here:\n";
  ZunWizAsp* asp = mPag.Asp();
  if (!asp) return r + "  none until the wizard's window is up\n";
  ZunWizAsp& a = *asp;
  static const char* const pal[] = {"ANT", "SEG", "CNF", "CAN"};
  int k = 0;
  for (QPushButton* b : {a.cmAnt, a.cmSeg, a.cmCnf, a.cmCan}) {
    if (!b->isHidden() && b->isEnabledTo(&a))
      r += "  " + std::string(pal[k]) + "  clicks \"" + b->text().toStdString() + "\"\n";
    k++;
  }
  r += "  CLOSE  closes the window by its close box\n";
  const SupWiz* sup = a.Sup();
  std::vector<int16_t> cmp;
  if (sup)
    for (const auto& [nome, i] : sup->Def().CmpIdx)
      if (!nome.empty()) cmp.push_back(i);
  std::sort(cmp.begin(), cmp.end());
  for (int i : cmp) {
    const Tx ide = TxTrim(sup->Cmp(i).Ide);
    for (CtlArr arr : {CtlArr::Ckb, CtlArr::Opc}) {
      QWidget* w = a.CtlWid(arr, i);
      if (!w || w->isHidden() || !w->isEnabledTo(&a)) continue;
      if (arr == CtlArr::Ckb) {
        r += "  CHECK " + TxUtf8(ide) + " 0|1\n";
      } else {
        std::vector<Var> n{Var()};
        try {
          a.Ctl(arr, i)->Exe(u"OpcNum", n);
        } catch (const std::exception&) {
        }
        r += "  OPTION " + TxUtf8(ide) + " 1.." + std::to_string(int(PrpNum(n[0]))) + "\n";
      }
    }
  }
  return r;
}

}  // namespace zw
