' Conversions of numbers, texts and booleans.
WScript.Echo "cint", CInt(2.5), CInt(3.5), CInt(-2.5), CInt(-3.5), CInt("12"), CInt(" 7 "), CInt(True), CInt(1.4999)
WScript.Echo "clng", CLng(2147483647), CLng(-2.5), CLng("1e3"), TypeName(CLng(1))
WScript.Echo "cbyte", CByte(255), CByte(0.5), CByte(1.5)
WScript.Echo "cdbl", CDbl("1.25"), CDbl("&H10"), CDbl("  -3e2 "), CDbl(True), CDbl(Empty)
WScript.Echo "csng", CSng(1 / 3), CSng(0.1)
WScript.Echo "ccur", CCur(1.23456), CCur(0.00005), CCur(0.00025), CCur("12.5"), TypeName(CCur(1))
WScript.Echo "cstr", CStr(1.5), CStr(-0.25), CStr(1E+20), CStr(1E-7), CStr(123456789012345), CStr(1234567890123456)
WScript.Echo "cstr2", CStr(0.1 + 0.2), CStr(100), CStr(True), CStr(False), CStr(CByte(7)), "[" & CStr(Empty) & "]"
WScript.Echo "cbool", CBool(1), CBool(0), CBool("true"), CBool("False"), CBool("1"), CBool(-0.5), CBool(Empty)
WScript.Echo "vartype", VarType(Empty), VarType(Null), VarType(1), VarType(100000), VarType(CSng(1)), VarType(1.5), VarType(CCur(1)), VarType(Now), VarType("s"), VarType(True), VarType(CByte(1)), VarType(Array())
WScript.Echo "typename", TypeName(Empty), TypeName(Null), TypeName(Nothing), TypeName(Array()), TypeName(CSng(1)), TypeName(CByte(1))
WScript.Echo "strings as numbers", "3" * "4", TypeName("3" * "4"), "2" - 1, -"5", "1" + 1 = 2
On Error Resume Next
x = CInt(32768) : WScript.Echo "cint overflow", Err.Number, Err.Description : Err.Clear
x = CInt(-32768.6) : WScript.Echo "cint low", Err.Number : Err.Clear
x = CLng(2147483648#) : WScript.Echo "clng overflow", Err.Number : Err.Clear
x = CByte(-1) : WScript.Echo "cbyte negative", Err.Number : Err.Clear
x = CInt("x") : WScript.Echo "text", Err.Number, Err.Description : Err.Clear
x = CInt(Null) : WScript.Echo "null", Err.Number, Err.Description : Err.Clear
x = CBool("maybe") : WScript.Echo "cbool text", Err.Number : Err.Clear
x = CStr(Null) : WScript.Echo "cstr null", Err.Number : Err.Clear
x = CInt(Array(1)) : WScript.Echo "array", Err.Number : Err.Clear
