' String functions: positions, compare modes, Null, and argument errors.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub
Function Q(s)
  If IsNull(s) Then Q = "<Null>" Else Q = "[" & s & "]"
End Function

WScript.Echo Q(Left("abc", 2)), Q(Right("abc", 5)), Q(Mid("abcdef", 3)), Q(Mid("abc", 2, 1)), Q(Mid("abc", 9)), Q(Left(123, 2))
WScript.Echo Len("abc"), Len(""), Len(12.5), Len(Empty), Q(Len(Null)), Q(Left(Null, 1)), Q(Mid(Null, 1)), LenB("ab")
WScript.Echo InStr("abcabc", "c"), InStr(4, "abcabc", "c"), InStr("abc", ""), InStr(4, "abc", ""), InStr("", "a"), Q(InStr("a", Null))
WScript.Echo InStr(1, "ABC", "b"), InStr(1, "ABC", "b", 1), InStr(1, "ABC", "b", vbTextCompare), InStrB("abc", "c")
WScript.Echo InStrRev("abcabc", "b"), InStrRev("abcabc", "b", 4), InStrRev("abc", ""), InStrRev("ABC", "b", -1, 1), InStrRev("abc", "c", 9)
WScript.Echo Q(LCase("ÀB")), Q(UCase("ação")), Q(Trim("  a  ")), Q(LTrim("  a  ")), Q(RTrim("  a  ")), Q(Trim(vbTab & "a")), Q(UCase(Null))
WScript.Echo Q(Space(3)), Q(String(3, "xy")), Q(String(2, 65)), Q(String(2, 321)), Q(StrReverse("abc")), Q(String(Null, "a"))
WScript.Echo StrComp("a", "b"), StrComp("b", "a"), StrComp("a", "A"), StrComp("a", "A", 1), Q(StrComp("a", Null)), TypeName(StrComp("a", "a"))
WScript.Echo Q(Replace("aXbXc", "X", "-")), Q(Replace("aXbXc", "X", "-", 3)), Q(Replace("aXbXc", "X", "-", 1, 1)), Q(Replace("axbXc", "X", "-", 1, -1, 1)), Q(Replace("abc", "", "-")), Q(Replace("abc", "b", ""))
a = Split("a,b,,c", ",")
WScript.Echo UBound(a), Q(a(2)), UBound(Split("")), UBound(Split("a b  c")), Q(Split("a b c", " ", 2)(1)), UBound(Split("aXbxc", "x", -1, 1)), UBound(Split("abc", ""))
WScript.Echo Q(Join(a, "+")), Q(Join(Array(1, True, "x"))), Q(Join(Array())), Q(Join(Array("a", "b"), ""))
f = Filter(Array("ab", "cd", "AB"), "b")
WScript.Echo UBound(f), Q(f(0)), UBound(Filter(Array("ab", "cd", "AB"), "b", True, 1)), Q(Filter(Array("ab", "cd"), "b", False)(0)), UBound(Filter(Array("x"), "y"))
WScript.Echo Q(Escape("a b+/é€@*_-.")), Q(Unescape("%41%u20AC%zz%")), Q(Unescape(Escape("x y%")))

x = Left("abc", -1): Chk "Left negative"
x = Mid("abc", 0): Chk "Mid start 0"
x = Mid("abc", 1, -1): Chk "Mid negative length"
x = Left("abc", Null): Chk "Left Null length"
x = Space(-1): Chk "Space negative"
x = String(-1, "a"): Chk "String negative"
x = String(2, ""): Chk "String empty character"
x = InStr(0, "abc", "a"): Chk "InStr start 0"
x = InStr(1, "abc", "a", 5): Chk "InStr compare 5"
x = InStrRev("abc", "a", 0): Chk "InStrRev start 0"
x = Replace(Null, "a", "b"): Chk "Replace Null"
x = Replace("abc", "a", "b", 0): Chk "Replace start 0"
x = Replace("abc", "a", "b", 1, -2): Chk "Replace count -2"
x = Split("a", ",", -2): Chk "Split count -2"
x = Join("abc"): Chk "Join of a text"
x = Filter("abc", "a"): Chk "Filter of a text"
x = StrReverse(Null): Chk "StrReverse Null"
