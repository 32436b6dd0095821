' String building: 1,000,000 times s = s & "x".
Dim s
Sub Bench()
  Dim i
  s = ""
  For i = 1 To 1000000
    s = s & "x"
  Next
End Sub
Dim t : t = Timer : Bench : WScript.Echo "concat1m", Len(s), FormatNumber(Timer - t, 3)
