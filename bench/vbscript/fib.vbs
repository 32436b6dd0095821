' Recursive calls: Fib(25).
Function Fib(n)
  If n < 2 Then
    Fib = n
  Else
    Fib = Fib(n - 1) + Fib(n - 2)
  End If
End Function
Dim r
Sub Bench() : r = Fib(25) : End Sub
Dim t : t = Timer : Bench : WScript.Echo "fib", r, FormatNumber(Timer - t, 3)
