// The variant: conversions, operators and the rules of their result kinds.
#include <gtest/gtest.h>
#include "Builtins.h"
#include "Engine.h"

using namespace vbs;

namespace {
int RaisedBy(void (*f)()) {
  try {
    f();
  } catch (Fault& e) {
    return e.num;
  }
  return 0;
}
}  // namespace

TEST(Value, SizeCopyAndRelease) {
  EXPECT_EQ(sizeof(Value), 16u);
  Value a(u"text");
  Value b = a;  // shares the string
  EXPECT_EQ(a.s, b.s);
  EXPECT_EQ(a.s->rc, 2u);
  b = Value(int16_t(1));
  EXPECT_EQ(a.s->rc, 1u);
  Value m = std::move(a);
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_EQ(m.Text(), u"text");
}

// Conversions as CInt, CStr and their kin show them are checked by lib/conv.vbs;
// here the ones no built-in reaches alone.
TEST(Value, ConversionsBelowTheBuiltins) {
  EXPECT_EQ(ToLng(Value(u" 12 ")), 12);
  EXPECT_EQ(ToLng(Value(true)), -1);
  EXPECT_EQ(RaisedBy([] { ToLng(Value::Null()); }), 94);
  EXPECT_EQ(ToByte(Value(255.4)), 255);
  EXPECT_EQ(ToCur(Value(1.23456)), 12346);
  EXPECT_EQ(RaisedBy([] { ToInt(Value(32767.5)); }), 6);  // rounds up past the range
  EXPECT_EQ(RaisedBy([] { ToByte(Value(int16_t(-1))); }), 6);
  EXPECT_EQ(RaisedBy([] { ToDbl(Value(Arr::New({1}))); }), 13);
  EXPECT_EQ(ToTx(Value()), u"");
  EXPECT_FALSE(ToBool(Value(u"0")));
}

// The kinds and values of operators are checked by conformance/operators.vbs;
// here the answers a script cannot see.
TEST(Value, OperatorAnswersBelowTheScripts) {
  EXPECT_EQ(Cmp(Value::Null(), Value(int16_t(1))), 2);  // "unknown", neither order
  EXPECT_EQ(RaisedBy([] { IsSame(Value(int16_t(1)), Value(int16_t(1))); }), 424);
  EXPECT_EQ(Logic(oOr, Value::Byte(1), Value::Byte(2)).t, vtByte);
  EXPECT_EQ(NotOp(Value()).i, -1);
}

TEST(Value, ConcatAndArrays) {
  EXPECT_EQ(Concat(Value(int16_t(3)), Value(true)).Text(), u"3True");
  EXPECT_TRUE(Concat(Value::Null(), Value::Null()).IsNull());
  EXPECT_EQ(Concat(Value::Null(), Value(u"x")).Text(), u"x");

  Value a(Arr::New({2, 1}));
  Value idx[2] = {Value(int16_t(2)), Value(int16_t(1))};
  a.a->At(idx, 2) = Value(u"corner");
  EXPECT_EQ(a.a->v.back().Text(), u"corner");  // the first index varies fastest
  Value bad[2] = {Value(int16_t(3)), Value(int16_t(0))};
  EXPECT_THROW(a.a->At(bad, 2), Fault);
  EXPECT_THROW(a.a->At(idx, 1), Fault);
  // Let copies an array that someone else holds
  Value b;
  Value src = a;
  LetTo(b, std::move(src));
  EXPECT_NE(a.a, b.a);
  EXPECT_EQ(b.a->v.back().Text(), u"corner");
}

TEST(Value, NamesAreCaseBlind) {
  EXPECT_TRUE(EqNoCase(u"WScript", u"wscript"));
  EXPECT_TRUE(EqNoCase(u"Ação", u"AÇÃO"));
  EXPECT_FALSE(EqNoCase(u"abc", u"abd"));
  EXPECT_EQ(NameIx(u"ECHO", {"Quit", "Echo"}), 2);
  EXPECT_EQ(NameIx(u"Ech", {"Quit", "Echo"}), -1);
}
