' String functions on a 100-character text, 200,000 rounds of Mid, InStr, Replace,
' UCase, Left, Len and concatenation of short pieces.
Sub Bench
  Dim s, i, n, t
  s = "The quick brown fox jumps over the lazy dog; a installacao copia os ficheiros para C:\Prog"
  n = 0
  For i = 1 To 200000
    t = Mid(s, (i Mod 50) + 1, 10)
    n = n + InStr(1, s, "lazy") + InStr(1, s, "FOX", vbTextCompare) + Len(t)
    t = UCase(Left(t, 5)) & "-" & LCase(t)
    If (i Mod 10) = 0 Then t = Replace(s, "o", "0")
  Next
  WScript.Echo n
End Sub
