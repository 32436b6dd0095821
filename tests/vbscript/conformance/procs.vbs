' Procedures: Sub, Function, ByRef and ByVal, Call, parentheses, recursion, scope.
Dim g : g = "global"

Sub Twice(ByRef n)
  n = n * 2
End Sub
Sub Keep(ByVal n)
  n = n * 2
End Sub
Function Fact(n)
  If n <= 1 Then Fact = 1 : Exit Function
  Fact = n * Fact(n - 1)
End Function
Function NoResult()
End Function

Dim v : v = 3
Twice v : WScript.Echo "byref", v
Keep v : WScript.Echo "byval", v
Twice (v) : WScript.Echo "parens make a copy", v
Call Twice(v) : WScript.Echo "call keeps byref", v
Twice v + 0 : WScript.Echo "an expression is a copy", v
WScript.Echo "fact", Fact(10), TypeName(Fact(10)), Fact(13)
WScript.Echo "empty result", IsEmpty(NoResult())

' arguments by reference reach array elements and globals
Dim arr(2) : arr(1) = 5
Twice arr(1) : WScript.Echo "element", arr(1)
Sub SetG() : g = "changed" : End Sub
SetG : WScript.Echo g

' a name that nothing declares is local to its procedure
Sub Loc()
  undeclaredLocal = 1
End Sub
Loc
WScript.Echo "local stays local", IsEmpty(undeclaredLocal)

' Dim after use in the same procedure
Function Late()
  x = 4
  Dim x
  Late = x
End Function
WScript.Echo "late dim", Late()

' procedures defined after their use, and functions called as statements
WScript.Echo "later", Later(2)
Function Later(k) : Later = k + 100 : End Function
Later 1

' ByRef arguments passed on through a second procedure
Sub Outer(a) : Inner a : End Sub
Sub Inner(b) : b = "set by inner" : End Sub
Dim t : Outer t : WScript.Echo t

' Exit Sub, and a function returning an array
Sub Early(ByRef r)
  r = "before"
  Exit Sub
  r = "after"
End Sub
Early t : WScript.Echo t
Function MakeArr(n)
  Dim a() : ReDim a(n - 1)
  Dim k
  For k = 0 To n - 1 : a(k) = k * k : Next
  MakeArr = a
End Function
WScript.Echo Join(MakeArr(4), ",")

' recursion with locals kept apart
Function Depth(n)
  Dim mine : mine = n
  If n > 0 Then Depth = Depth(n - 1) & mine Else Depth = "0"
End Function
WScript.Echo Depth(5)

' wrong argument count
On Error Resume Next
Twice
WScript.Echo "wrong count", Err.Number, Err.Description
Err.Clear
WScript.Echo Fact(1, 2)
WScript.Echo "wrong count in expression", Err.Number
