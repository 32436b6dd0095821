' RegExp: Global Execute and Replace over a 120 KB text of words and addresses.
Sub Bench
  Dim re, s, i, ms, r
  For i = 1 To 3000
    s = s & "linha " & i & " nome" & i & "@dominio.com texto; "
  Next
  Set re = CreateObject("VBScript.RegExp")
  re.Global = True
  re.Pattern = "\b(\w+)@(\w+)\.com\b"
  For i = 1 To 5
    Set ms = re.Execute(s)
    r = re.Replace(s, "$2:$1")
  Next
  WScript.Echo ms.Count, Len(r)
End Sub
