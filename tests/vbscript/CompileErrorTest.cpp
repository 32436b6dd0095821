// Compile errors: the number, the line and the column a text fails at.
#include <gtest/gtest.h>
#include "ScriptControl.h"

using namespace vbs;

namespace {
struct Case {
  const char16_t* text;
  int number, line, col;
};
}  // namespace

TEST(CompileErrors, NumberAndPlace) {
  const Case cases[] = {
      {u"x = ", 1023, 1, 4},                               // Expected expression
      {u"x = 1 2", 1025, 1, 6},                            // Expected end of statement
      {u"If x Then\r\n y = 1", 1014, 2, 6},                // Expected 'End'
      {u"For i = 1\r\nNext", 1013, 1, 9},                  // Expected 'To'
      {u"For i = 1 To 2\r\n x = 1", 1020, 2, 6},           // Expected 'Next'
      {u"Do\r\n x = 1", 1019, 2, 6},                       // Expected 'Loop'
      {u"While x\r\n x = 1", 1018, 2, 6},                  // Expected 'Wend'
      {u"x = \"abc", 1033, 1, 4},                          // Unterminated string constant
      {u"x = 1 $ 2", 1032, 1, 6},                          // Invalid character
      {u"Sub A(\r\nEnd Sub", 1010, 1, 6},                  // Expected identifier
      {u"Sub A()\r\n x = 1", 1016, 2, 6},                  // Expected 'Sub'
      {u"Function F()\r\nEnd Sub", 1015, 2, 0},            // Expected 'Function'
      {u"Select x\r\nEnd Select", 1021, 1, 7},             // Expected 'Case'
      {u"Exit Do", 1039, 1, 7},                            // Invalid 'exit' statement
      {u"Sub A()\r\n Exit Function\r\nEnd Sub", 1039, 2, 14},
      {u"Class C\r\n Public Default X\r\nEnd Class", 1056, 2, 16},
      {u"Class C\r\n Sub Class_Initialize(a)\r\n End Sub\r\nEnd Class", 1053, 2, 1},
      {u"Sub A(a, a)\r\nEnd Sub", 1041, 1, 10},            // Name redefined
      {u"x = Me", 1037, 1, 4},                             // Invalid use of 'Me'
      {u"Const c = x", 1045, 1, 10},                       // Expected literal constant
      {u"S 1, 2)", 1025, 1, 6},
      {u"With x\r\n .a = 1", 1029, 2, 7},                  // Expected 'With'
      {u"x = a(1,", 1023, 1, 8},
      {u"Property Get P\r\nEnd Property", 1048, 1, 0},    // Must be defined inside a Class
  };
  for (const Case& c : cases) {
    ScriptControl sc;
    EXPECT_FALSE(sc.AddCode(c.text)) << zw::TxUtf8(c.text);
    const ScriptError& e = sc.Error();
    EXPECT_EQ(e.Number, c.number) << zw::TxUtf8(c.text) << " / " << zw::TxUtf8(e.Description);
    EXPECT_EQ(e.Line, c.line) << zw::TxUtf8(c.text);
    EXPECT_EQ(e.Column, c.col) << zw::TxUtf8(c.text);
    EXPECT_EQ(e.Source, u"Microsoft VBScript compilation error");
    EXPECT_FALSE(e.Description.empty());
  }
}

// Forms the conformance scripts do not already compile.
TEST(CompileErrors, ValidFormsCompile) {
  const char16_t* ok[] = {
      u"If x Then y = 1 Else y = 2",
      u"If x Then y = 1 : z = 2 Else y = 3 : z = 4",
      u"Public Const A = -1, B = \"t\" & \"u\"",
      u"x = a.b(1).c(2, 3).d",
      u"Sub S(ByVal a, ByRef b, c())\r\nEnd Sub",
      u"Option Explicit\r\nDim x",
      u"",
  };
  for (const char16_t* t : ok) {
    ScriptControl sc;
    sc.AddCode(t);
    EXPECT_LT(sc.Error().Number, 1000) << zw::TxUtf8(t) << " / " << zw::TxUtf8(sc.Error().Description);
  }
}
