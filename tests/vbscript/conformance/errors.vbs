' Run-time errors: numbers, the Err object, Resume Next abandoning exactly the failing statement.
Dim a(2), x, s
On Error Resume Next
x = a(5) : WScript.Echo "subscript", Err.Number, Err.Description : Err.Clear
x = 1 : x = y.z : WScript.Echo "object required", Err.Number, x : Err.Clear
x = UndefinedFn(1) : WScript.Echo "undefined function", Err.Number : Err.Clear
x = CLng("1e20") : WScript.Echo "overflow", Err.Number : Err.Clear
Err.Raise 5 : WScript.Echo "raise", Err.Number, Err.Description, Err.Source : Err.Clear
Err.Raise vbObjectError + 10, "mine", "my own error"
WScript.Echo "custom", Err.Number, Err.Source, Err.Description : Err.Clear
Err.Raise 12345 : WScript.Echo "unknown", Err.Number, Err.Description : Err.Clear

' the failing statement is abandoned as a whole, the next one runs
s = "start"
s = s & "-" & (1 / 0) & "-never"
WScript.Echo "abandoned:", s
x = 0
x = x + 1 : x = x / 0 : x = x + 10
WScript.Echo "colon statements:", x

' an error inside a condition goes on with the statement after it, inside the block
If 1 / 0 = 1 Then
  WScript.Echo "entered the Then part"
Else
  WScript.Echo "else part"
End If
Err.Clear

' an error in a called procedure ends that procedure and lands here
Sub Fails()
  WScript.Echo "in Fails"
  x = 1 / 0
  WScript.Echo "not reached"
End Sub
Fails
WScript.Echo "after Fails", Err.Number : Err.Clear

' a procedure with its own handler keeps going; Err stays set after it returns
Sub Handles()
  On Error Resume Next
  x = 1 / 0
  WScript.Echo "handled inside", Err.Number
End Sub
Handles
WScript.Echo "after Handles", Err.Number

' On Error GoTo 0 clears Err and restores failing
On Error GoTo 0
WScript.Echo "cleared", Err.Number
On Error Resume Next
Err.Number = 7 : WScript.Echo "number set", Err.Number, Err
Err.Clear : WScript.Echo "after clear", Err.Number, "[" & Err.Description & "]"

' errors in a loop body do not stop the loop
For Each x In Array(1, 0, 2)
  s = 10 / x
  WScript.Echo x, s, Err.Number
  Err.Clear
Next
' a For header that fails enters the body
For x = 1 To Null
  WScript.Echo "body after failed For", Err.Number
  Exit For
Next
Err.Clear
' Option Explicit is absent here: an undeclared name is simply Empty
WScript.Echo "undeclared", IsEmpty(neverDeclared)
