' Operators: the kind of each result, overflow, Null, comparisons, concatenation.
WScript.Echo "add", 1 + 1, TypeName(1 + 1), TypeName(32767 + 1), TypeName(2147483647 + 1), TypeName(CByte(1) + CByte(1))
WScript.Echo "byte", TypeName(CByte(200) + CByte(100)), TypeName(CByte(1) + 1), TypeName(-CByte(1))
WScript.Echo "single", TypeName(CSng(1) + 1), TypeName(CSng(1) + CLng(1)), TypeName(CSng(1) * CDbl(1))
WScript.Echo "currency", TypeName(CCur(1) + 1), CCur(2.5) * CCur(1.5), TypeName(CCur(1) * 1.5)
WScript.Echo "bool", True + True, TypeName(True + True), TypeName(Empty + Empty), 1 + Empty
WScript.Echo "text", "1" + 2, TypeName("1" + 2), "1" + "2", "a" + Empty, 3 & 4, TypeName(3 & 4)
WScript.Echo "mul", 200 * 200, TypeName(200 * 200), 65536 * 65536, -32768 * -1, TypeName(-32768 * -1)
WScript.Echo "div", 7 / 2, TypeName(4 / 2), 1 / 3, TypeName(CSng(1) / CSng(4))
WScript.Echo "intdiv", 7 \ 2, -7 \ 2, 2.5 \ 1, 3.5 \ 1, 7.5 \ 2, TypeName(7 \ 2), TypeName(CLng(7) \ 2), TypeName(7.5 \ 2)
WScript.Echo "mod", 7 Mod 3, -7 Mod 3, 7 Mod -3, 7.5 Mod 2, 6.5 Mod 4, TypeName(7 Mod 3)
WScript.Echo "pow", 2 ^ 10, TypeName(2 ^ 2), 4 ^ 0.5, (-8) ^ 3
WScript.Echo "neg", -(-32768), TypeName(-(-32768)), -Empty, TypeName(-Empty)
WScript.Echo "date", #1/31/2020# + 1, TypeName(#1/1/2020# + 1), TypeName(#1/2/2020# - #1/1/2020#), #1/2/2020# - #1/1/2020#
WScript.Echo "null", IsNull(Null + 1), IsNull(Null * 0), IsNull(-Null), IsNull(Null = Null), IsNull(Null & Null), "a" & Null & "b"
WScript.Echo "and", 12 And 10, 12 Or 3, 12 Xor 10, Not 0, Not -1, TypeName(Not CByte(1)), Not CByte(1)
WScript.Echo "logic", True And False, True Or False, True Xor True, False Eqv False, True Imp False, False Imp True
WScript.Echo "nullogic", IsNull(Null And True), Null And False, Null Or True, IsNull(Null Or False), IsNull(Null Xor True)
WScript.Echo "nullimp", False Imp Null, Null Imp True, IsNull(Null Imp False)
WScript.Echo "cmp", 1 < 2, 2 <= 2, 3 > 4, "a" < "b", "B" < "a", "abc" = "ABC", "" = Empty, 0 = Empty, "10" < "9"
WScript.Echo "mixed", 5 = "5", 5 < "5", "5" > 5, 1.0 = 1, CCur(1) = 1, True = -1, #1/1/2000# = 36526
WScript.Echo "precedence", 2 + 3 * 4, (2 + 3) * 4, 2 * 3 ^ 2, 10 - 2 - 3, 12 / 2 / 3, 7 \ 2 * 2, 1 + 2 & 3 + 4
WScript.Echo "precedence2", Not 1 = 2, 1 = 1 And 2 = 2, 5 Mod 3 * 2, 2 ^ 3 ^ 2
Dim a : a = 1 : a = a = 1
WScript.Echo "assign vs compare", a
On Error Resume Next
x = 1 / 0 : WScript.Echo "div0", Err.Number : Err.Clear
x = 0 / 0 : WScript.Echo "zero by zero", Err.Number : Err.Clear
x = 1 \ 0 : WScript.Echo "intdiv0", Err.Number : Err.Clear
x = 1 Mod 0 : WScript.Echo "mod0", Err.Number : Err.Clear
x = CCur(900000000000000) * 100 : WScript.Echo "cur overflow", Err.Number : Err.Clear
x = 1E308 * 10 : WScript.Echo "double overflow", Err.Number : Err.Clear
x = "abc" + 1 : WScript.Echo "text plus number", Err.Number : Err.Clear
x = Array(1) + 1 : WScript.Echo "array plus number", Err.Number : Err.Clear
x = 2147483647.6 \ 1 : WScript.Echo "intdiv overflow", Err.Number : Err.Clear
x = (-8) ^ (1 / 3) : WScript.Echo "root of negative", Err.Number : Err.Clear
' a chain of & on a long text appends to the first result in place, converting each kind as & does
s = String(70, "x")
t = s & 1 & True & Empty & Null & 2.5 & "b" & CCur(3) & s
WScript.Echo "long chain", Len(t), Mid(t, 71, 13), Len(s)
