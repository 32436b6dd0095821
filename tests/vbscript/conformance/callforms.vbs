' Call with a procedure name in parentheses, and built-ins called as statements:
' a conversion's own errors (argument count, text that is no number, range, Null)
' come before the 458 that a conversion used as a statement gives once it succeeds.
On Error Resume Next

Sub Inc(a) : a = a + 1 : End Sub
Function Twice(a) : a = a * 2 : Twice = a : End Function

' parentheses around the name; around the argument they make an expression (a copy)
x = 1 : Call (((Inc))) ((x))
WScript.Echo "by value:", x, Err.Number : Err.Clear
x = 1 : Call (((Inc))) (x)
WScript.Echo "by reference:", x, Err.Number : Err.Clear
x = 3 : Call ((Twice)) ((x))
WScript.Echo "function by value:", x, Err.Number : Err.Clear
x = 3 : Call ((Twice)) (x)
WScript.Echo "function by reference:", x, Err.Number : Err.Clear
x = 5 : Call (Inc)(x)
WScript.Echo "one pair:", x, Err.Number : Err.Clear

' the statement's error comes last
v = 1
Call CByte(v)
WScript.Echo "Call CByte(1):", Err.Number : Err.Clear
CStr(v)
WScript.Echo "CStr(1) statement:", Err.Number : Err.Clear
CStr v
WScript.Echo "CStr 1 statement:", Err.Number : Err.Clear
Call UBound()
WScript.Echo "Call UBound():", Err.Number : Err.Clear
Call CLng()
WScript.Echo "Call CLng():", Err.Number : Err.Clear
Call CInt(1, 2)
WScript.Echo "Call CInt(1, 2):", Err.Number : Err.Clear
Call CByte("")
WScript.Echo "Call CByte(""""):", Err.Number : Err.Clear
Call CByte("abc")
WScript.Echo "Call CByte(""abc""):", Err.Number : Err.Clear
Call CDbl("1x")
WScript.Echo "Call CDbl(""1x""):", Err.Number : Err.Clear
Call CDate("no date")
WScript.Echo "Call CDate(""no date""):", Err.Number : Err.Clear
Call CByte("-1")
WScript.Echo "Call CByte(""-1""):", Err.Number : Err.Clear
Call CByte("258")
WScript.Echo "Call CByte(""258""):", Err.Number : Err.Clear
Call CInt(40000)
WScript.Echo "Call CInt(40000):", Err.Number : Err.Clear
CStr(Null)
WScript.Echo "CStr(Null) statement:", Err.Number : Err.Clear
Call CLng(Null)
WScript.Echo "Call CLng(Null):", Err.Number : Err.Clear
Call MonthName(Null, Null)
WScript.Echo "Call MonthName(Null, Null):", Err.Number : Err.Clear
Call CBool("x")
WScript.Echo "Call CBool(""x""):", Err.Number : Err.Clear
Call CCur("1e300")
WScript.Echo "Call CCur(""1e300""):", Err.Number : Err.Clear
' arguments are worked out before the conversion fails
n = 0
Function Counted() : n = n + 1 : Counted = 7 : End Function
Call CSng(Counted())
WScript.Echo "argument ran:", n, Err.Number : Err.Clear
' as an expression the same calls succeed or fail with their own errors
WScript.Echo "expression:", CByte("7"), CStr(v), Err.Number
