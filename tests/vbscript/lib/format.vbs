' Formats and CStr under en-US and pt-PT, and switching locales.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub
Function V(s)
  ' Shows the no-break space that pt-PT groups digits with.
  V = Replace(s, ChrW(160), "_")
End Function

WScript.Echo GetLocale(), SetLocale(1033)
WScript.Echo FormatNumber(1234567.891), FormatNumber(2.5, 0), FormatNumber(0.125, 2), FormatNumber(-0.5, 2, 0), FormatNumber(-1234.5, 1, -1, -1, 0), FormatNumber(-0.001, 2), FormatNumber(Empty)
WScript.Echo FormatNumber(999.999, 2), FormatNumber(1E+20, 0), FormatNumber("12.5", 1), FormatNumber(True, 0), FormatNumber(0.5, 0, 0)
WScript.Echo FormatCurrency(1234.5), FormatCurrency(-1234.5), FormatCurrency(-1, 2, -1, 0), FormatCurrency(0.004)
WScript.Echo FormatPercent(0.256), FormatPercent(-0.256), FormatPercent(1, 0), FormatPercent(-0.5, 1, -1, -1)
d = #1/2/2020 3:04:05 PM#
WScript.Echo FormatDateTime(d), "|", FormatDateTime(d, vbLongDate), "|", FormatDateTime(d, vbShortDate), "|", FormatDateTime(d, vbLongTime), "|", FormatDateTime(d, vbShortTime)
WScript.Echo CStr(d), CStr(#1/2/2020#), CStr(#3:04:05 PM#), CStr(1.5), CStr(1234567.5), CDbl("1,5"), CDbl("$1,000.50")

WScript.Echo SetLocale("pt-pt"), GetLocale()
WScript.Echo CStr(1.5), CDbl("1,5"), V(FormatNumber(1234567.891)), FormatNumber(0.5), V(FormatCurrency(1234.5)), V(FormatCurrency(-1234.5)), FormatCurrency(-1, 0, -1, -1), FormatPercent(0.256)
WScript.Echo CStr(d), "|", FormatDateTime(d, vbLongDate), "|", FormatDateTime(d, vbShortDate), "|", FormatDateTime(d, vbLongTime)
WScript.Echo MonthName(3), MonthName(3, True), WeekdayName(4), WeekdayName(7, True), CDate("1/2/2020") = #2/1/2020#, CDate("5 dez 2020")
WScript.Echo SetLocale(1033), GetLocale(), CDbl("1,5")
x = SetLocale(12345): Chk "SetLocale unknown id"
x = SetLocale("xx-yy"): Chk "SetLocale unknown name"
WScript.Echo GetLocale()
x = FormatNumber("x"): Chk "FormatNumber text"
x = FormatNumber(Null): Chk "FormatNumber Null"
x = FormatNumber(1, -2): Chk "FormatNumber -2 decimals"
x = FormatDateTime(Now, 5): Chk "FormatDateTime 5"
x = FormatDateTime("x"): Chk "FormatDateTime text"
