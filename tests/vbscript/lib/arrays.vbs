' Array, bounds, and the inspection functions.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub

a = Array(1, "x", Null)
WScript.Echo LBound(a), UBound(a), UBound(Array()), TypeName(a), VarType(a), IsArray(a), IsArray("a")
Dim m(2, 5)
WScript.Echo UBound(m), UBound(m, 2), LBound(m, 2)
WScript.Echo IsEmpty(Empty), IsEmpty(""), IsNull(Null), IsNull(Empty), IsObject(Nothing), IsObject(a)
WScript.Echo IsNumeric("12"), IsNumeric(" &H1F "), IsNumeric("1e5"), IsNumeric(""), IsNumeric("12a"), IsNumeric(Empty), IsNumeric(Null), IsNumeric(#1/1/2020#), IsNumeric(True), IsNumeric(a)
WScript.Echo TypeName(1), TypeName(100000), TypeName(1.5), TypeName(CCur(1)), TypeName(Now), TypeName("s"), TypeName(True), TypeName(Empty), TypeName(Null), TypeName(Nothing), TypeName(CByte(1)), TypeName(CSng(1))
WScript.Echo VarType(1), VarType(100000), VarType(1.5), VarType(CCur(1)), VarType(Now), VarType("s"), VarType(True), VarType(Empty), VarType(Null), VarType(Nothing), VarType(CByte(1))
x = UBound(a, 2): Chk "UBound dimension 2"
x = UBound(m, 0): Chk "UBound dimension 0"
x = LBound("x"): Chk "LBound of a text"
x = UBound(Null): Chk "UBound Null"
