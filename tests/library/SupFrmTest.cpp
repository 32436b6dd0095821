// Form layout: resize keys against a form that grows, line marks and position
// expressions, the form's size keys and its smallest size.
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include "SupFrm.h"

using namespace zw;

namespace {

// A control or form held as a table of number properties; unknown names raise 438,
// a negative size raises 380, and a control marked as gone raises 438 for all.
struct Ctl : CtlObj {
  Tx nome;
  Ctl* cont = nullptr;
  bool frm = false, foi = false;
  std::map<Tx, double> p;
  Ctl(Tx n, double l, double t, double w, double h, Ctl* c = nullptr) : nome(std::move(n)), cont(c) {
    p = {{u"Left", l}, {u"Top", t}, {u"Width", w}, {u"Height", h}};
  }
  Var PrpCon(TxV n) const override {
    auto it = p.find(Tx(n));
    if (foi || it == p.end()) throw CtlErr(438);
    return Var(it->second);
  }
  void PrpAtr(TxV n, const Var& v) override {
    if (foi || !p.count(Tx(n))) throw CtlErr(438);
    if ((n == u"Width" || n == u"Height") && v.Num() < 0) throw CtlErr(380);
    p[Tx(n)] = v.Num();
  }
  Var Exe(TxV, std::vector<Var>&) override { throw CtlErr(438); }
  double operator[](const char16_t* n) const { return p.at(n); }
};

struct Amb : FrmAmb {
  Tx Nome(const CtlObj& c) const override { return static_cast<const Ctl&>(c).nome; }
  CtlObj* Contentor(const CtlObj& c) const override { return static_cast<const Ctl&>(c).cont; }
  bool EhFrm(const CtlObj& c) const override { return static_cast<const Ctl&>(c).frm; }
  double EcrW() const override { return 19200; }
  double EcrH() const override { return 10800; }
  double PixX() const override { return tx; }
  double PixY() const override { return ty; }
  double tx = 15, ty = 15;
};

// A form of 6000 x 4000 twips with a frame allowance of 100 x 400, so 5900 x 3600
// of room at design size; Cresce makes the room 7900 x 4600.
struct SupFrmTest : ::testing::Test {
  Amb amb;
  SupFrm sf{amb};
  Ctl frm{u"frmTeste", 0, 0, 6000, 4000};
  void SetUp() override {
    frm.frm = true;
    frm.p[u"WindowState"] = 0;
    frm.p[u"Enabled"] = 1;
    sf.RegFrmAjt(100, 400);
    sf.RegFrm(frm);
  }
  void Cresce() {
    frm.p[u"Width"] = 8000;
    frm.p[u"Height"] = 5000;
  }
  std::unique_ptr<Ctl> Linha(Tx nome, double x1, double y1, double x2, double y2) {
    auto l = std::make_unique<Ctl>(nome, 0, 0, 0, 0, &frm);
    l->p = {{u"X1", x1}, {u"Y1", y1}, {u"X2", x2}, {u"Y2", y2}};
    return l;
  }
};

TEST_F(SupFrmTest, ResizeKeysFollowTheRoomInsideTheContainer) {
  Ctl fr(u"frA", 0, 0, 3000, 2000, &frm), fr0(u"fr0", 0, 0, 0, 0, &frm);
  Ctl a(u"a", 1000, 500, 2000, 300, &frm), b(u"b", 1180, 900, 2950, 720, &frm);
  Ctl c(u"c", 0, 0, 1000, 500, &frm), d(u"d", 0, 0, 1000, 500, &fr), z(u"z", 700, 500, 100, 100, &fr0);
  Ctl gone(u"gone", 100, 100, 100, 100, &frm), sem(u"", 0, 0, 10, 10, &frm);
  sf.RegOb(a, u"PX,DY,ZZ,DX");           // an unknown key does not stop the others
  sf.RegOb(b, u" px% , dx%,PY%,dy% ");   // keys are trimmed and put in capitals
  sf.RegOb(gone, u"PX");
  sf.RegOb(c, u"C");                     // directly on the form: border allowance
  sf.RegOb(d, u"C");                     // in a frame: none
  sf.RegOb(z, u"PX%,PY");                // 0 wide: the share is skipped, Left stays stored
  sf.RegOb(sem, u"PX");                  // no name: not registered
  ASSERT_EQ(sf.Ctls().size(), 7u);
  EXPECT_DOUBLE_EQ(sf.Ctls()[6].l, 700);
  EXPECT_DOUBLE_EQ(sf.Ctls()[6].t, -500);
  gone.foi = true;  // a control that has gone does not stop the pass
  Cresce();
  sf.AjtCtl(1);
  EXPECT_EQ(a[u"Left"], 3000);
  EXPECT_EQ(a[u"Height"], 1300);
  EXPECT_EQ(a[u"Width"], 4000);
  EXPECT_EQ(a[u"Top"], 500);
  EXPECT_DOUBLE_EQ(b[u"Left"], 1580);
  EXPECT_DOUBLE_EQ(b[u"Width"], 3950);
  EXPECT_DOUBLE_EQ(b[u"Top"], 1150);
  EXPECT_DOUBLE_EQ(b[u"Height"], 920);
  EXPECT_DOUBLE_EQ(c[u"Left"], (7900 - 120 - 1000) / 2.0);
  EXPECT_DOUBLE_EQ(c[u"Top"], (4600 - 405 - 500) / 2.0);
  EXPECT_DOUBLE_EQ(d[u"Left"], 1000);
  EXPECT_DOUBLE_EQ(d[u"Top"], 750);
  EXPECT_EQ(sem[u"Left"], 0);
  EXPECT_EQ(frm[u"Enabled"], -1);  // enabled again after the work
}

TEST_F(SupFrmTest, CentringKeepsTheOwnSizeAndBottomDistancesFollowTheContainer) {
  Ctl fr(u"frA", 0, 0, 3000, 2000, &frm);
  Ctl e(u"e", 100, 100, 1000, 500, &frm), f(u"f", 0, 3000, 100, 100, &frm), g(u"g", 2500, 1500, 100, 100, &fr);
  sf.RegOb(e, u"DX,C");  // "C" stores the width again, over the distance of "DX"
  sf.RegOb(f, u"PY");
  sf.RegOb(g, u"PY,PX");  // in a frame: the frame's size, no allowance
  EXPECT_DOUBLE_EQ(sf.Ctls()[1].w, 1000);
  EXPECT_DOUBLE_EQ(sf.Ctls()[1].h, 500);
  EXPECT_DOUBLE_EQ(sf.Ctls()[2].t, 600);
  EXPECT_DOUBLE_EQ(sf.Ctls()[3].t, 500);
  Cresce();
  fr.p[u"Width"] = 3600;
  fr.p[u"Height"] = 2600;
  sf.AjtCtl();
  EXPECT_DOUBLE_EQ(e[u"Width"], 7900 - 1000);
  EXPECT_DOUBLE_EQ(e[u"Left"], (7900 - 120 - 1000) / 2.0);
  EXPECT_DOUBLE_EQ(e[u"Top"], (4600 - 405 - 500) / 2.0);
  EXPECT_DOUBLE_EQ(f[u"Top"], 4000);
  EXPECT_DOUBLE_EQ(f[u"Left"], 0);
  EXPECT_DOUBLE_EQ(g[u"Top"], 2100);
  EXPECT_DOUBLE_EQ(g[u"Left"], 3100);
}

TEST_F(SupFrmTest, PositionExpressionsOverLineMarks) {
  auto la = Linha(u"LinA", 1000, 200, 1200, 900), lb = Linha(u"linB", 3000, 400, 3000, 1600);
  sf.MpoReg(*la, u"");
  sf.MpoReg(*lb, u"");
  struct {
    const char16_t* exp;
    double val;
  } casos[] = {
      {u"PM=LINA:X|LINB:X1|10", 2010},  // "X" is the first end
      {u"pm=lina:x2|linb:x2|0", 2100},  // uppercased before use
      {u"P%25=LINA:Y|LINB:Y2|0", 450},
      {u"P%50=LINA:X|LINB:X|-5", 1995},
      {u"PX=LINB:Y2|-100", 1500},       // any other head: a + offset
      {u"PM=NADA:X|LINB:X|0", 1500},    // unknown name gives 0
      {u"PM=LINA:Z|LINB:X|0", 1500},    // unknown point gives 0
  };
  for (auto& c : casos) {
    double v = -1;
    sf.MpoPosCalc(c.exp, v);
    EXPECT_DOUBLE_EQ(v, c.val) << TxUtf8(c.exp);
  }
}

TEST_F(SupFrmTest, ExpressionKeysPlaceControlsAndMarks) {
  auto la = Linha(u"LinA", 5000, 200, 5200, 900), lb = Linha(u"LinB", 0, 1800, 5900, 1900);
  auto lc = Linha(u"LinC", 100, 100, 200, 200);
  sf.MpoReg(*la, u"PX");
  sf.MpoReg(*lb, u"PY%");
  sf.MpoReg(*lc, u"MPX:PM=LINA:X|LINA:X|0,MPY:Q=LINB:Y|1");
  Ctl a(u"a", 0, 0, 100, 100, &frm), b(u"b", 0, 0, 100, 100, &frm);
  // The width comes from the Left just set, the height from the Top.
  sf.RegOb(a, u"MPX:P%50=LINA:X|LINB:X|0,MDX:Q=LINA:X|500,mpy:q=lina:y|0,MDY:PM=LINA:Y2|LINB:Y2|0");
  sf.RegOb(b, u"MPX,MPY%Q=LINB:Y|0");  // "MPX" alone and "MPY%" fall in the expression range
  Cresce();
  sf.MpoAjt();
  sf.AjtCtl();
  EXPECT_EQ((*la)[u"X1"], 7000);  // the second end copies the first
  EXPECT_EQ((*la)[u"X2"], 7000);
  EXPECT_EQ((*la)[u"Y2"], 900);
  EXPECT_DOUBLE_EQ((*lb)[u"Y2"], 2300);
  EXPECT_EQ((*lc)[u"X2"], 7000);
  EXPECT_EQ((*lc)[u"Y1"], 2301);
  EXPECT_EQ(a[u"Left"], 3500);
  EXPECT_EQ(a[u"Width"], 4000);
  EXPECT_EQ(a[u"Top"], 200);
  EXPECT_EQ(a[u"Height"], 1400);
  EXPECT_EQ(b[u"Left"], 0);
  EXPECT_EQ(b[u"Top"], 2300);
}

TEST_F(SupFrmTest, LineMarksKeepShareAndBottomDistanceOnBothEnds) {
  auto la = Linha(u"LinA", 1475, 200, 3000, 900), lb = Linha(u"LinB", 100, 3000, 5000, 3300);
  sf.MpoReg(*la, u"PX%");
  sf.MpoReg(*lb, u"py");
  EXPECT_DOUBLE_EQ(sf.Mpos()[1].x1, 0.25);
  EXPECT_DOUBLE_EQ(sf.Mpos()[1].x2, 0.25);  // the second end copies the first
  EXPECT_DOUBLE_EQ(sf.Mpos()[2].y2, 600);
  Cresce();
  sf.MpoAjt();
  EXPECT_DOUBLE_EQ((*la)[u"X1"], 1975);
  EXPECT_DOUBLE_EQ((*la)[u"X2"], 1975);
  EXPECT_EQ((*la)[u"Y1"], 200);  // the other axis stays
  EXPECT_EQ((*la)[u"Y2"], 900);
  EXPECT_EQ((*lb)[u"Y1"], 4000);
  EXPECT_EQ((*lb)[u"Y2"], 4000);
  EXPECT_EQ((*lb)[u"X2"], 5000);
}

TEST_F(SupFrmTest, SizeKeysApplyFromLeftToRight) {
  const double B = 28 * 15;
  sf.DimAjt(u"1024,C");
  EXPECT_EQ(frm[u"Left"], 1920);
  EXPECT_EQ(frm[u"Top"], -360);
  sf.DimAjt(u"c,800t");  // centred first, then sized
  EXPECT_EQ(frm[u"Left"], 1920);
  EXPECT_EQ(frm[u"Height"], 9000 - B);
  double top = (10800 - frm[u"Height"]) / 2;
  sf.DimAjt(u"CT");
  EXPECT_EQ(top - frm[u"Top"], B / 2);
  struct {
    const char16_t* chv;
    double w, h;
  } tams[] = {{u"SCRT", 19200, 10800 - B}, {u"MXA", 28800, 16200}, {u"640T", 9600, 7200 - B}, {u"BASE", 6000, 4000}};
  for (auto& t : tams) {
    sf.DimAjt(t.chv);
    EXPECT_EQ(frm[u"Width"], t.w) << TxUtf8(t.chv);
    EXPECT_EQ(frm[u"Height"], t.h) << TxUtf8(t.chv);
  }
  sf.DimAjt(u"MAX,XYZ");
  EXPECT_EQ(frm[u"WindowState"], 2);
  Ctl par(u"frmPai", 1000, 2000, 9000, 7000);
  sf.RegFrmPar(&par);
  sf.DimAjt(u"PC");
  EXPECT_EQ(frm[u"Left"], 2500);
  EXPECT_EQ(frm[u"Top"], 3500);
  sf.DimAjt(u"PA");
  EXPECT_EQ(frm[u"Width"], 9000);
  EXPECT_EQ(frm[u"Top"], 2000);
}

// A pixel of 15 x 12 twips, so that a size taken from the wrong axis shows.
TEST_F(SupFrmTest, ScreenSizesStatesAndTheParentsPlace) {
  amb.ty = 12;
  const double B = 28 * 12;
  struct {
    const char16_t* chv;
    double w, h;
  } tams[] = {{u"SCR", 19200, 10800}, {u"1024T", 15360, 9216 - B}, {u"800", 12000, 7200}, {u"640", 9600, 5760}};
  for (auto& t : tams) {
    sf.DimAjt(t.chv);
    EXPECT_EQ(frm[u"Width"], t.w) << TxUtf8(t.chv);
    EXPECT_EQ(frm[u"Height"], t.h) << TxUtf8(t.chv);
  }
  sf.DimAjt(u"MAX,MIN");
  EXPECT_EQ(frm[u"WindowState"], 1);
  sf.DimAjt(u"MIN, nor");
  EXPECT_EQ(frm[u"WindowState"], 0);
  frm.p[u"Left"] = 77;
  sf.DimAjt(u"PP,PA,PC");  // no parent: nothing moves
  EXPECT_EQ(frm[u"Left"], 77);
  Ctl par(u"frmPai", 1000, 2000, 9000, 7000);
  sf.RegFrmPar(&par);
  sf.DimAjt(u"PP");  // the parent's place, not its size
  EXPECT_EQ(frm[u"Left"], 1000);
  EXPECT_EQ(frm[u"Top"], 2000);
  EXPECT_EQ(frm[u"Width"], 9600);
  EXPECT_EQ(frm[u"Height"], 5760);
}

TEST_F(SupFrmTest, SmallestSizeRaisesOnlyWhatIsBelow) {
  frm.p[u"Width"] = 3000;
  frm.p[u"Height"] = 5000;
  sf.DimMin(-1, 99999);  // a negative width takes the design size
  EXPECT_EQ(frm[u"Width"], 6000);
  EXPECT_EQ(frm[u"Height"], 5000);
  Ctl a(u"cmOk", 2000, 3000, 1500, 400, &frm), b(u"laTit", 300, 200, 4000, 300, &frm);
  sf.RegOb(a, u"");
  sf.RegOb(b, u"");
  sf.DimLimPrp(u"F<:CMOK, f>:cmOk, D<:laTit, XX:cmOk, F<:nada");
  frm.p[u"Width"] = 1000;
  frm.p[u"Height"] = 1000;
  sf.DimLim();
  EXPECT_EQ(frm[u"Width"], 2 * 300 + 4000 + 100);  // with the frame allowance
  EXPECT_EQ(frm[u"Height"], 3000 + 400 + 400);
}

// Each limit key on its own, then two together: the smallest outer size with the
// frame allowance (100 x 400); a key that governs one axis leaves the other at 0.
TEST_F(SupFrmTest, LimitKeysEachTakeTheirOwnMeasure) {
  Ctl a(u"cmOk", 2000, 3000, 1500, 400, &frm), b(u"laTit", 300, 200, 4000, 300, &frm);
  Ctl c(u"frLista", 500, 700, 2500, 2600, &frm);
  sf.RegOb(a, u"");
  sf.RegOb(b, u"");
  sf.RegOb(c, u"");
  struct {
    const char16_t* chv;
    double w, h;
  } casos[] = {
      {u"O<:laTit", 4100, 0},              // its width
      {u"O>:frLista", 0, 3000},            // its height
      {u"D>:cmOk", 0, 2 * 3000 + 400 + 400},  // as much room below as above
      {u"R<:frLista", 3100, 3700},         // both edges
      {u"o<:LATIT, R<:cmOk", 4100, 3800},  // the larger need of each axis
  };
  for (auto& k : casos) {
    sf.DimLimPrp(k.chv);
    EXPECT_EQ(sf.LimW(), k.w) << TxUtf8(k.chv);
    EXPECT_EQ(sf.LimH(), k.h) << TxUtf8(k.chv);
  }
}

}  // namespace
