WScript.Echo "never runs: the whole text fails to compile"
If x Then
  x = (1 + 
End If
