' RegExp: properties, Test, Execute and its collections, Replace, pattern errors.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number & " " & Err.Description
  Err.Clear
End Sub

Set re = CreateObject("VBScript.RegExp")
WScript.Echo TypeName(re), "[" & re.Pattern & "]", re.Global, re.IgnoreCase, re.Multiline
re.Pattern = "(\w+)@(\w+)\.com"
re.Global = True
Set ms = re.Execute("a@b.com, c@d.com; x@y.org")
WScript.Echo TypeName(ms), ms.Count, ms(0), ms.Item(1).Value, ms(1).FirstIndex, ms(1).Length, TypeName(ms(0))
Set sm = ms(1).SubMatches
WScript.Echo TypeName(sm), sm.Count, sm(0), sm.Item(1), ms(0).SubMatches(0)
For Each m In ms
  WScript.Echo "match", m.FirstIndex, m
Next
WScript.Echo re.Replace("a@b.com and c@d.com", "$2:$1 [$&] $$ $3 $")
re.Global = False
WScript.Echo re.Execute("a@b.com c@d.com").Count, re.Replace("x a@b.com and c@d.com", "<$`|$'>")
WScript.Echo re.Test("nothing"), re.Test("q@w.com")

re.Pattern = "^b.*$"
WScript.Echo re.Test("a" & vbLf & "bc"), re.Execute("a" & vbLf & "bc").Count
re.Multiline = True
WScript.Echo re.Test("a" & vbLf & "bc"), re.Execute("a" & vbLf & "bc")(0)
re.Pattern = "ABC"
WScript.Echo re.Test("xabc")
re.IgnoreCase = True
WScript.Echo re.Test("xabc"), re.Replace("xaBc", "[$&]")

re.Global = True
re.IgnoreCase = False
re.Pattern = "b(x)?"
Set ms = re.Execute("abcb")
WScript.Echo ms.Count, IsEmpty(ms(0).SubMatches(0)), "[" & ms(0).SubMatches(0) & "]"
re.Pattern = "x*"
WScript.Echo re.Replace("abc", "-"), re.Execute("abc").Count
re.Pattern = "<.+?>"
WScript.Echo re.Replace("<a><b>text</b>", "")
re.Pattern = "(\d+)-(\d+)"
WScript.Echo re.Replace("10-20 30-40", "$2-$1")
re.Pattern = "(\w)\1"
WScript.Echo re.Execute("aabccdde").Count
re.Pattern = "\b\w+(?=!)"
WScript.Echo re.Execute("hi there!")(0)
re.Pattern = "[^\s,]+"
WScript.Echo re.Execute("a, bb ,ccc").Count
re.Pattern = "(a)"
WScript.Echo re.Replace("a0", "[$10]"), re.Replace("a0", "[$01]")
re.Pattern = "^$"
WScript.Echo re.Execute("").Count, re.Test("x")
re.Multiline = True
re.Pattern = "a$"
WScript.Echo re.Execute("a" & vbCrLf & "ba").Count
re.Multiline = False
re.Pattern = "\d{2,3}?x|\d+"
WScript.Echo re.Execute("12345x 7").Count, re.Execute("12345x 7")(0)
re.Pattern = "(?!ab)\w\w"
WScript.Echo re.Execute("abcd")(0)
re.IgnoreCase = True
re.Pattern = "[^a-c]+"
WScript.Echo re.Execute("ABCdefABC")(0)
re.IgnoreCase = False
re.Pattern = "\bis\B"
WScript.Echo re.Execute("this is isle")(0).FirstIndex
Function Up(m, g1, pos, src)
  Up = UCase(m) & pos
End Function
re.Pattern = "b(x)?"
WScript.Echo re.Replace("abcb", GetRef("Up"))

re.Pattern = "a("
x = re.Test("a"): Chk "missing )"
re.Pattern = "[ab"
x = re.Execute("a"): Chk "missing ]"
re.Pattern = "*a"
x = re.Replace("a", "b"): Chk "quantifier first"
re.Pattern = "[z-a]"
x = re.Test("a"): Chk "bad range"
re.Pattern = "a)"
x = re.Test("a"): Chk "stray )"
re.Pattern = "a"
x = re.Execute("aaa")(5): Chk "Item out of range"

' New RegExp is the language's own class, beside script classes of other names
Set nr = New RegExp
nr.Pattern = "b+": nr.Global = True
WScript.Echo TypeName(nr), nr.Replace("abbcbd", "-")
