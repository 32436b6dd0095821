// The run without a person: answers, trace and screenshots over the program's own
// start-up and windows.
#include "ZunWizRun.h"
#include "VbsSup.h"
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <cstdlib>
#include <map>
#include <string>
#include "MsgDlg.h"
#include "CtlQt.h"
#include "FicLer.h"
#include "MsgDlgQt.h"
#include "SupShfPrg.h"
#include "SupWiz.h"
#include "TxQt.h"
#include "TxtGlb.h"
#include "ZunWizAsp.h"
#include "ZunWizCtl.h"
#include "ZunWizGlb.h"
#include "ZunWizRes.h"

namespace zw {

// ---- Answers ----------------------------------------------------------------------

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

// The longest answer line; no answer comes near it.
constexpr size_t kRunLinMax = 1 << 20;

// One line of answers, at most kRunLinMax bytes: standard input that never ends a
// line (/dev/zero) gives a line too long rather than a read for ever. False at the
// end of the answers.
static bool RunLinLer(std::istream& in, std::string& s, bool& longa) {
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

// ---- Trace --------------------------------------------------------------------------

Tx RunAsp(TxV t) {
  Tx r = u"\"";
  for (size_t i = 0; i < t.size(); i++) {
    char16_t c = t[i];
    if (c == u'"') r += u"\"\"";
    else if (c == u'\r' && i + 1 < t.size() && t[i + 1] == u'\n') { r += u'|'; i++; }
    else if (c == u'\r' || c == u'\n') r += u'|';
    else if (c == u'\t') r += u'\u00BB';
    else r += c;
  }
  return r + u"\"";
}

namespace {

struct Run;
Run* gRun = nullptr;

// The run in force: the answers, the trace, where the wizard stands.
struct Run final : MsgDlg {
  RunOpc opc;
  std::optional<RunFon> fon;
  QPointer<ZunWizAsp> asp;  // the wizard window that runs
  int pagIdx = 0;
  Tx pagIde;
  int foto = 0;
  bool passo = false;  // a step of the answers is due
  // The controls shown since the last page line, and those in view at it: a page
  // line looks at these, not at every control of every page of the window.
  std::map<QWidget*, QPointer<QWidget>> vis;

  // One line of the trace, flushed. A trace that cannot be written ends the run:
  // what it was for is lost.
  void Trc(const Tx& lin) {
    if (!opc.trc) return;
    std::string s = TxUtf8(lin);
    s += '\n';
    if (std::fwrite(s.data(), 1, s.size(), opc.trc) != s.size() || std::fflush(opc.trc) != 0)
      Falha("cannot write the trace: " + std::string(std::strerror(errno)));
  }

  // The trace or a shot could not be written: said on stderr, and the process ends.
  [[noreturn]] static void Falha(const std::string& porque) {
    std::fprintf(stderr, "zunwiz-run: %s\n", porque.c_str());
    ResFim();
    ZunWizFim(kSaiTrc);
  }

  Tx Pag() const {
    Tx r = u"page " + TxDeUtf8(std::to_string(pagIdx));
    if (!pagIde.empty()) r += u" " + pagIde;
    return r;
  }

  // The answers do not fit the wizard: said on stderr with the answer's line and
  // the page, and the process ends at once, the window left as it is.
  [[noreturn]] void Desajuste(const Tx& porque, int lin) {
    Trc(u"end answers");
    std::string m = "zunwiz-run: answers line " + std::to_string(lin) + ", " +
                    (pagIdx ? TxUtf8(Pag()) : std::string("before the first page")) + ": " +
                    TxUtf8(porque) + "\n";
    std::fputs(m.c_str(), stderr);
    ResFim();
    ZunWizFim(kSaiRsp);
  }

  // The next answer. A line that is no answer at all does not fit; typed at a
  // terminal, it is said and the person is asked again, and "help" or "?" lists
  // the answers that fit what is in view (ajuda; the page by default) and asks again.
  const RunRsp* Prox(const std::function<std::string()>& ajuda = {}) {
    for (;;) {
      const RunRsp* r = fon->Prox();
      if (!r) return r;
      if (r->k == RunRsp::K::Ajuda) {
        if (!opc.rspTerm) Desajuste(u"help is an answer at a terminal only", r->lin);
        std::fputs(((ajuda ? ajuda() : PagAjuda()) + "> ").c_str(), stderr);
        std::fflush(stderr);
        fon->Toma();
        continue;
      }
      if (fon->Erro().empty()) return r;
      if (!opc.rspTerm) Desajuste(fon->Erro(), r->lin);
      std::fputs(("zunwiz-run: " + TxUtf8(fon->Erro()) + " (help or ? lists the answers)\n> ").c_str(), stderr);
      std::fflush(stderr);
      fon->Toma();
    }
  }

  // The BOX words of a box's buttons, its default marked: "BOX 1 Yes (default),
  // BOX 0 No".
  static std::string BoxPal(const int* bot, int n, int omi) {
    std::string r;
    for (int i = 0; i < n; i++) {
      const int c = bot[i];
      const int w = c == kAnsOk || c == kAnsYes ? 1 : c == kAnsNo ? 0 : c == kAnsCancel ? -1 : c;
      static const char* const nomes[] = {"", "OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};
      if (i) r += ", ";
      r += "BOX " + std::to_string(w) + " " + (c >= 1 && c <= 7 ? nomes[c] : "?");
      if (c == omi) r += " (default)";
    }
    return r;
  }

  // The answers that fit the page in view: the buttons a person could click, the
  // close box, and the check boxes and option groups in view and enabled.
  std::string PagAjuda() const {
    std::string r = "answers here:\n";
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
    for (int i = 1; gSup && i <= gSup->CmpNum(); i++) {
      const Tx ide = TxTrim(gSup->Cmp(i).Ide);
      if (ide.empty() || CmpIdx(ide) != i) continue;
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

  // At a terminal, says what answer is awaited: a click, or the box shown.
  void Prompt(const char* o_que, const Tx& caixa = Tx()) {
    if (!opc.rspTerm) return;
    std::string m = "zunwiz-run " + (pagIdx ? TxUtf8(Pag()) : std::string()) + " " + o_que;
    if (!caixa.empty()) m += " " + TxUtf8(caixa);
    m += "> ";
    std::fputs(m.c_str(), stderr);
    std::fflush(stderr);
  }

  // A shot named by its number and a name; separators in the name become "_".
  void Foto(const QPixmap& px, const Tx& nome) {
    if (opc.fotos.empty()) return;
    foto++;
    QString n = QsTx(nome);
    n.replace(u'/', u'_').replace(u'\\', u'_');
    QString f = QStringLiteral("%1/%2-%3.png").arg(QsTx(opc.fotos)).arg(foto, 2, 10, QLatin1Char('0')).arg(n);
    if (!px.save(f, "PNG")) Falha("cannot write the shot " + f.toStdString());
  }

  // ---- The dialog service ----

  int Caixa(int estilo, const Tx& titulo, const Tx& texto) override {
    int bot[3];
    const int n = MsgBotoes(estilo, bot);
    const bool pal = MsgDlgPal();
    int cod = MsgRespOmissao(estilo);
    if (n > 1) {
      const std::string pal = BoxPal(bot, n, cod);
      Prompt("box", RunAsp(titulo) + u" " + RunAsp(texto) + u" [" + TxDeUtf8(pal) + u"]");
      const RunRsp* r = Prox([&pal] {
        return "answers here: " + pal + "; any other answer takes the default and waits for later\n";
      });
      if (r && r->k == RunRsp::K::Box) {
        // The result word names a button: 1 OK or Yes, 0 No, -1 Cancel; any
        // other number is the answer code itself (Abort, Retry, Ignore).
        int quer = r->num == 1 ? -100 : r->num == 0 ? kAnsNo : r->num == -1 ? kAnsCancel : r->num;
        cod = 0;
        for (int i = 0; i < n; i++)
          if (bot[i] == quer || (quer == -100 && (bot[i] == kAnsOk || bot[i] == kAnsYes))) cod = bot[i];
        if (!cod) Desajuste(u"the box has no button for BOX " + TxDeUtf8(std::to_string(r->num)), r->lin);
        fon->Toma();
      }
    }
    int res = cod;
    if (pal) res = cod == kAnsOk || cod == kAnsYes ? 1 : cod == kAnsNo ? 0 : cod == kAnsCancel ? -1 : cod;
    Trc(u"box " + TxDeUtf8(std::to_string(estilo)) + u" " + RunAsp(titulo) + u" " + RunAsp(texto) + u" -> " +
        TxDeUtf8(std::to_string(res)));
    if (!opc.fotos.empty()) {
      QMessageBox* b = MsgCaixaCri(estilo, titulo, texto);
      b->show();
      Foto(b->grab(), u"box");
      delete b;
    }
    return cod;
  }

  void Bip() override {}

  bool Entrada(const Tx& titulo, const Tx& pergunta, const Tx& omissao, Tx& resposta) override {
    Prompt("input", RunAsp(titulo) + u" " + RunAsp(pergunta) + u" default " + RunAsp(omissao));
    const RunRsp* r = Prox([&omissao] {
      return "answers here: INPUT text (the rest of the line), INPUT alone to cancel; any other answer takes "
             "the default " + TxUtf8(RunAsp(omissao)) + " and waits for later\n";
    });
    bool ok = true;
    resposta = omissao;
    if (r && r->k == RunRsp::K::Input) {
      ok = !r->can;
      resposta = ok ? r->tx : Tx();
      fon->Toma();
    }
    Trc(u"input " + RunAsp(titulo) + u" " + RunAsp(pergunta) + u" -> " + RunAsp(ok ? resposta : Tx()));
    return ok;
  }

  // ---- The window ----

  // The page line, then one line per control whose own Visible is set: buttons
  // first, then components by index.
  void PagEnt(ZunWizAsp& a, int idx, const Tx& ide) {
    // Without shots nobody sees the offscreen window: it is not painted, since a
    // paint passes over every control of every page, and a wizard of many pages
    // would pay that at each page change.
    if (opc.fotos.empty() && a.updatesEnabled()) a.setUpdatesEnabled(false);
    asp = &a;
    pagIdx = idx;
    pagIde = ide;
    Trc(Pag());
    for (QPushButton* b : {a.cmAnt, a.cmSeg, a.cmCnf, a.cmCan})
      if (!b->isHidden()) CtlLin(a, b, TxQs(b->objectName()), b->text(), nullptr);
    std::vector<std::pair<int, CtlArr>> cmp;
    for (auto it = vis.begin(); it != vis.end();) {
      QWidget* w = it->second;
      int i = 0;
      CtlArr arr = CtlArr::Lab;
      if (w && !w->isHidden() && CtlIdx(a, w, i, arr)) {
        cmp.emplace_back(i, arr);
        ++it;
      } else {
        it = vis.erase(it);
      }
    }
    std::sort(cmp.begin(), cmp.end());
    for (auto [i, arr] : cmp) CmpLin(a, arr, i);
    if (!opc.fotos.empty()) Foto(a.grab(), ide.empty() ? TxDeUtf8(std::to_string(idx)) : ide);
  }

  // The array and index of a component's control of the window, from the name the
  // window gives it ("laWiz(3)"); false for any other widget.
  static bool CtlIdx(ZunWizAsp& a, QWidget* w, int& i, CtlArr& arr) {
    const QString n = w->objectName();
    for (CtlArr k : {CtlArr::Lab, CtlArr::Ckb, CtlArr::Rtf, CtlArr::Opc}) {
      const QLatin1String pre(ZunWizAsp::ArrNome(k));
      if (!n.startsWith(pre) || n.size() < pre.size() + 3 || n[pre.size()] != u'(' || !n.endsWith(u')')) continue;
      bool ok = false;
      i = n.mid(pre.size() + 1, n.size() - pre.size() - 2).toInt(&ok);
      arr = k;
      return ok && i > 0 && a.CtlWid(k, i) == w;
    }
    return false;
  }

  void CtlLin(ZunWizAsp& a, QWidget* w, const Tx& nome, const QString& tx, const Var* val) {
    const QRect g = w->geometry();
    char geo[64];
    std::snprintf(geo, sizeof geo, " %d,%d %dx%d %s ", g.x(), g.y(), g.width(), g.height(),
                  w->isEnabledTo(&a) ? "on" : "off");
    Tx lin = u"ctl " + nome + TxDeUtf8(geo) + RunAsp(TxQs(tx));
    if (val) lin += u" value=" + TxVar(*val);
    Trc(lin);
  }

  void CmpLin(ZunWizAsp& a, CtlArr arr, int i) {
    QWidget* w = a.CtlWid(arr, i);
    CtlObj* c = CtlDe(w);
    const Tx nome = TxDeUtf8(ZunWizAsp::ArrNome(arr)) + u"(" + TxDeUtf8(std::to_string(i)) + u")";
    Tx tx;
    Var val;
    try {
      switch (arr) {
        case CtlArr::Lab: tx = TxVar(c->PrpCon(u"Caption")); break;
        case CtlArr::Ckb:
          tx = TxVar(c->PrpCon(u"Caption"));
          val = Var(int32_t(PrpNum(c->PrpCon(u"Value"))));
          break;
        case CtlArr::Rtf: tx = TxVar(c->PrpCon(u"Text")).substr(0, 60); break;
        case CtlArr::Opc: {
          std::vector<Var> n{Var()};
          c->Exe(u"OpcNum", n);
          for (int k = 1; k <= int(PrpNum(n[0])); k++) {
            std::vector<Var> o{Var(int16_t(k)), Var(Tx()), Var(Tx())};
            c->Exe(u"ConOpc", o);
            if (k > 1) tx += u"|";
            tx += TxVar(o[1]);
          }
          val = Var(int32_t(PrpNum(c->PrpCon(u"opcUsa"))));
          break;
        }
      }
    } catch (const CtlErr&) {
    }
    CtlLin(a, w, nome, QsTx(tx), val.EhVazio() ? nullptr : &val);
  }

  // The component named ide, as the engine looks it up: the first whose name is
  // equal after trimming and capitals; 0 when there is none.
  static int CmpIdx(const Tx& ide) {
    int16_t i = 0;
    if (gSup) gSup->CmpIdx(ide, i);
    return i;
  }

  // One answer, once the window is up and idle: a click, the close box, a check
  // box or an option. The next is taken when this one has run its course.
  void Passo() {
    passo = false;
    if (!asp || !asp->isVisible()) return;
    Prompt("click");
    const RunRsp* r = Prox();
    if (!r) Desajuste(u"the answers ran out while the wizard is open", fon->Lin() + 1);
    RunRsp rsp = *r;
    fon->Toma();
    ZunWizAsp& a = *asp;
    switch (rsp.k) {
      case RunRsp::K::Ajuda:  // Prox answers it
        break;
      case RunRsp::K::Box:
      case RunRsp::K::Input:
        Desajuste(u"no box is open", rsp.lin);
      case RunRsp::K::Btn: {
        QPushButton* b = a.findChild<QPushButton*>(QsTx(rsp.nome), Qt::FindDirectChildrenOnly);
        if (b->isHidden()) Desajuste(rsp.nome + u" is hidden", rsp.lin);
        if (!b->isEnabledTo(&a)) Desajuste(rsp.nome + u" is disabled", rsp.lin);
        b->click();
        break;
      }
      case RunRsp::K::Close:
        a.close();
        break;
      case RunRsp::K::Check:
      case RunRsp::K::Option: {
        const CtlArr arr = rsp.k == RunRsp::K::Check ? CtlArr::Ckb : CtlArr::Opc;
        const int i = CmpIdx(rsp.nome);
        CtlObj* c = i > 0 ? a.Ctl(arr, i) : nullptr;
        const char16_t* tipo = arr == CtlArr::Ckb ? u"check box" : u"option group";
        if (!c) Desajuste(u"no " + Tx(tipo) + u" component named " + rsp.nome, rsp.lin);
        // As a click would: a control that is hidden or disabled takes none.
        QWidget* w = a.CtlWid(arr, i);
        if (w->isHidden()) Desajuste(rsp.nome + u" is hidden", rsp.lin);
        if (!w->isEnabledTo(&a)) Desajuste(rsp.nome + u" is disabled", rsp.lin);
        bool ok = true;
        try {
          if (arr == CtlArr::Opc) {
            std::vector<Var> n{Var()};
            c->Exe(u"OpcNum", n);
            ok = rsp.num >= 1 && rsp.num <= PrpNum(n[0]);
          }
          if (ok) c->PrpAtr(arr == CtlArr::Ckb ? u"Value" : u"opcUsa", Var(int16_t(rsp.num)));
        } catch (const std::exception&) {
          ok = false;
        }
        if (!ok)
          Desajuste(rsp.nome + (arr == CtlArr::Opc ? u" has no option " : u" takes no value ") +
                        TxDeUtf8(std::to_string(rsp.num)),
                    rsp.lin);
        break;
      }
    }
    Agenda();
  }

  void Agenda() {
    if (passo || !asp || !asp->isVisible()) return;
    passo = true;
    QTimer::singleShot(0, asp.data(), [this] { Passo(); });
  }

  // The window has been unloaded after running: answers still waiting do not fit.
  void Unload() {
    if (!opc.rspTerm)
      if (const RunRsp* r = Prox()) Desajuste(u"answers are left over when the wizard ends", r->lin);
    Trc(u"end unload");
  }
};

}  // namespace

namespace {
// Notes every widget that is shown, for the page lines (Run::vis).
struct RunVis final : QObject {
  bool eventFilter(QObject* o, QEvent* e) override {
    if (e->type() == QEvent::ShowToParent && o->isWidgetType() && gRun) {
      QWidget* w = static_cast<QWidget*>(o);
      gRun->vis[w] = w;
    }
    return false;
  }
};
}  // namespace

void ZunWizRunIni(const RunOpc& opc) {
  static Run run;
  static RunVis vis;
  QCoreApplication::instance()->installEventFilter(&vis);
  run.opc = opc;
  run.fon.emplace(*opc.rsp);
  gRun = &run;
  if (!opc.fotos.empty() && !QDir().mkpath(QsTx(opc.fotos)))
    Run::Falha("cannot make the shots folder " + TxUtf8(opc.fotos));
  MsgDlgDef(&run);
  // Files refused and texts cut at their limits are lines of the trace.
  LimTrcDef([](const Tx& l) { gRun->Trc(l); });
  // Copies, moves and deletes write their progress to the trace.
  static ShfPrgLin prg([](const Tx& l) { gRun->Trc(l); });
  ShfPrgDef(&prg);
  // Every script error the wizard passes over: number, description, the option
  // file's line (0 when it is no program line) and the statement or call. The
  // assignment of "cmpFontName" fails by design (the font name goes in unquoted):
  // its line ends in " kept", so that an author does not chase it.
  VbsTrcSaiDef([](const VbsTrcReg& r) {
    bool kept = r.call.rfind(u"ExeCmd \"cmpFontName=", 0) == 0;
    gRun->Trc(u"script " + TxAsc(std::to_string(r.num)) + u" " + RunAsp(r.des) + u" line " +
              TxAsc(std::to_string(r.lin)) + u" " + RunAsp(r.call) + (kept ? u" kept" : u""));
  });
  AspGan& g = AspGanAct();
  g.PagEnt = [](ZunWizAsp& a, int idx, const Tx& ide) { gRun->PagEnt(a, idx, ide); };
  g.Mostra = [](ZunWizAsp& a) {
    gRun->asp = &a;
    gRun->Agenda();
  };
  g.Unload = [](ZunWizAsp&) { gRun->Unload(); };
  g.End = [] {
    gRun->Trc(u"end exit");
    ZunWizFim(ZunWizSai(kSaiEnd, "zunwiz-run", [](const Tx& l) { gRun->Trc(l); }));
  };
  // A script call past the time limit ends the run there: a wizard stuck in a loop
  // would otherwise hold the run for ever.
  VbsTmpDef(opc.tmp);
  VbsTmpSaiDef([](const VbsTrcReg& r) {
    gRun->Trc(u"end timeout");
    std::string m = "zunwiz-run: a script call went past the time limit of " +
                    std::to_string(gRun->opc.tmp / 1000) + " s: " + TxUtf8(r.call);
    if (r.lin > 0) m += ", option file line " + std::to_string(r.lin);
    std::fprintf(stderr, "%s\n", m.c_str());
    ResFim();
    ZunWizFim(kSaiTmp);
  });
}

int ZunWizRunFim(int st) {
  if (gRun && !gRun->opc.rspTerm)
    if (const RunRsp* r = gRun->Prox()) gRun->Desajuste(u"answers are left over when the run ends", r->lin);
  return ZunWizSai(st, "zunwiz-run", [](const Tx& l) {
    if (gRun) gRun->Trc(l);
  });
}

}  // namespace zw
