' Scripting.Dictionary: 100,000 text keys added, each looked up and tested twice,
' the Items array taken, then every key removed.
Sub Bench
  Dim d, i, n, it
  Set d = CreateObject("Scripting.Dictionary")
  For i = 1 To 100000
    d.Add "chave" & i, i
  Next
  n = 0
  For i = 1 To 100000
    n = n + d("chave" & i)
    If d.Exists("chave" & (i * 7)) Then n = n + 1
  Next
  it = d.Items
  For i = 1 To 100000
    d.Remove "chave" & i
  Next
  WScript.Echo n, UBound(it), d.Count
End Sub
