Option Explicit
' With Option Explicit an undeclared name is error 500 where it runs.
Dim ok : ok = 1
WScript.Echo "declared", ok
On Error Resume Next
notDeclared = 5
WScript.Echo "assign", Err.Number, Err.Description : Err.Clear
ok = notDeclared2 + 1
WScript.Echo "read", Err.Number : Err.Clear
Sub P()
  Dim inner : inner = 3
  WScript.Echo "inner", inner
  alsoUndeclared = 1
End Sub
P
WScript.Echo "in procedure", Err.Number
