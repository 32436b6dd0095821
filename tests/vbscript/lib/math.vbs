' Maths: result kinds, banker's rounding, the random sequence and domain errors.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub

WScript.Echo Abs(-3), TypeName(Abs(-3)), Abs(-2.5), TypeName(Abs(Empty)), TypeName(Abs(CInt(-32768))), IsNull(Abs(Null)), Abs("-4")
WScript.Echo Sgn(-0.1), Sgn(0), Sgn(7), TypeName(Sgn(7))
WScript.Echo Round(2.5), Round(3.5), Round(-2.5), Round(0.125, 2), Round(0.375, 2), Round(1.5, 0), TypeName(Round(CInt(7))), TypeName(Round("2.5")), IsNull(Round(Null))
WScript.Echo Round(Atn(1) * 4, 10), Round(Cos(0), 5), Round(Sin(0), 5), Round(Tan(0), 5), Round(Exp(1), 6), Round(Log(Exp(2)), 6), Sqr(16)
WScript.Echo Rnd(-1), Rnd, Rnd, Rnd(0)
WScript.Echo Rnd(-1) = Rnd(-1)
Randomize 10
a = Rnd
Rnd -1
Randomize 10
WScript.Echo TypeName(a), a >= 0 And a < 1
x = Sqr(-1): Chk "Sqr negative"
x = Log(0): Chk "Log 0"
x = Exp(1000): Chk "Exp overflow"
x = Round(1.5, -1): Chk "Round negative decimals"
x = Sgn(Null): Chk "Sgn Null"
x = Sin("x"): Chk "Sin text"
