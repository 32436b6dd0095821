' Counting loop with a global counter: 3,000,000 iterations of s = s + i Mod 7.
Dim s, i
Sub Bench()
  s = 0
  For i = 1 To 3000000
    s = s + i Mod 7
  Next
End Sub
Dim t : t = Timer : Bench : WScript.Echo "countg", s, FormatNumber(Timer - t, 3)
