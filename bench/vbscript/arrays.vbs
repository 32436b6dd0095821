' Array fill and sum: 1,000,000 elements.
Dim s
Sub Bench()
  Dim i, a()
  ReDim a(999999)
  For i = 0 To 999999
    a(i) = i * 2
  Next
  s = 0
  For i = 0 To 999999
    s = s + a(i)
  Next
End Sub
Dim t : t = Timer : Bench : WScript.Echo "arrays", s, FormatNumber(Timer - t, 3)
