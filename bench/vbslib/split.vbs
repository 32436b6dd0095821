' Split and Join of a line of 10,000 fields, 50 times, and Trim of each field.
Sub Bench
  Dim a(9999), i, k, l, p, n
  For i = 0 To 9999
    a(i) = " campo" & i & " "
  Next
  l = Join(a, ";")
  For k = 1 To 50
    p = Split(l, ";")
    n = 0
    For i = 0 To UBound(p)
      n = n + Len(Trim(p(i)))
    Next
    l = Join(p, ";")
  Next
  WScript.Echo n
End Sub
