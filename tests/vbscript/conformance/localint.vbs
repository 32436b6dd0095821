' A local with a small integer (i Mod 7, n - 1, n < 2): the kinds of the results at
' the edges of Integer and Long, and locals of other kinds, as the operators give them.
On Error Resume Next

Sub Show(label, v) : WScript.Echo label, TypeName(v), v : End Sub

Sub Run()
  On Error Resume Next
  Dim n, l, s, e, d, b, r
  n = 32767 : l = 2147483647 : s = "10" : d = 2.5 : b = True
  Show "Integer + 1:", n + 1
  Show "Integer - 1:", n - 1
  Show "Integer * 2:", n * 2
  Show "-Integer - 2:", -n - 2
  Show "Integer Mod 7:", n Mod 7
  Show "Integer Mod -1:", n Mod -1
  Show "Long + 1:", l + 1
  Show "Long * 3:", l * 3
  Show "Long Mod 10:", l Mod 10
  Show "small Long Mod 7:", CLng(20) Mod 7
  r = CLng(20) : Show "Long local Mod 7:", r Mod 7
  r = CLng(5) : Show "Long local + 1:", r + 1
  Show "text + 1:", s + 1
  Show "text < 9:", s < 9
  Show "text = 10:", s = 10
  Show "Empty + 1:", e + 1
  Show "Empty = 0:", e = 0
  Show "Double * 2:", d * 2
  Show "Boolean + 1:", b + 1
  Show "Integer < 2:", n < 2
  Show "Integer >= 32767:", n >= 32767
  Show "Integer <> 5:", n <> 5
  r = n Mod 0
  WScript.Echo "Mod 0:", Err.Number : Err.Clear
  r = Null : Show "Null + 1:", r + 1
  If r < 2 Then WScript.Echo "Null < 2 taken" Else WScript.Echo "Null < 2 not taken"
  For n = 1 To 5
    If n Mod 2 = 0 Then WScript.Echo "even", n
    If n > 3 Then WScript.Echo "past 3:", n
  Next
End Sub
Run

Function Fib(n)
  If n < 2 Then Fib = n Else Fib = Fib(n - 1) + Fib(n - 2)
End Function
WScript.Echo "Fib(20):", Fib(20)
