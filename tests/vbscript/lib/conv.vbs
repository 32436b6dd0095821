' Conversion functions: kinds of results, rounding, Null and the errors of bad arguments.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub
SetLocale 1033

WScript.Echo TypeName(CInt("12")), CInt(2.5), CInt(3.5), CInt(-2.5), CLng(2147483647.4)
WScript.Echo TypeName(CByte(255)), TypeName(CCur(1)), TypeName(CSng(1)), TypeName(CDbl("1e3")), CDbl("1e3")
WScript.Echo CBool("true"), CBool("False"), CBool(0.1), CBool(""), TypeName(CBool(1))
WScript.Echo CStr(True), CStr(1.5), CStr(0.0001), CStr(0.00001), CStr(1E+15), CStr(123456789012345)
WScript.Echo CStr(1/3), CStr(CSng(1/3)), CStr(CCur(1234.5678)), CStr(-0.5), CDbl(" &HFF "), CLng("&H7FFFFFFF")
WScript.Echo CDate("1/2/2020"), CDate(43831), TypeName(CDate(1.5)), CDate(0.5)
WScript.Echo Asc("A"), Asc("€"), AscW("€"), AscB("A"), AscW(ChrW(-1))
WScript.Echo Chr(65) & Chr(128) & ChrW(233) & ChrW(-32767 - 1) = "A€é" & ChrW(32768)
WScript.Echo Hex(255), Hex(-1), Hex(-32769), Hex(2.5), Hex(3.5), Oct(8), Oct(-1), "[" & Hex(Null) & "]"
WScript.Echo Int(-2.5), Fix(-2.5), Int(2.9), TypeName(Int("2.5")), TypeName(Int(True)), TypeName(Fix(CCur(1.5))), IsNull(Int(Null))

x = CInt(32768): Chk "CInt overflow"
x = CByte(-1): Chk "CByte negative"
x = CLng("abc"): Chk "CLng text"
x = CDbl(Null): Chk "CDbl Null"
x = CStr(Null): Chk "CStr Null"
x = CBool("yes"): Chk "CBool yes"
x = CDate("no date"): Chk "CDate text"
x = CDate(3000000): Chk "CDate out of range"
x = Asc(""): Chk "Asc empty"
x = AscW(Null): Chk "AscW Null"
x = Chr(256): Chk "Chr 256"
x = ChrW(65536): Chk "ChrW 65536"
x = Hex(2147483648#): Chk "Hex overflow"
x = CCur(1E+20): Chk "CCur overflow"
x = Hex(""): Chk "Hex of an empty text"
