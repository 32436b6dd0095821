' Syntax that programs written for Windows use: one-line procedures, empty
' statements, the other spellings of operators, Property as a name, calls
' through a parenthesised name, and a member reference outside any With.
Sub Hello(x) WScript.Echo "hello", x : End Sub
Function Twice(x) Twice = x * 2 End Function
Sub Two()
  WScript.Echo "two" End Sub
Class Box : Public v End Class
Class Pair
  Public a, b
  Public Function Sum() Sum = a + b End Function
End Class
Hello 1
WScript.Echo "twice:", Twice(4)
Two
Set p = New Pair : p.a = 2 : p.b = 3 : WScript.Echo "sum:", p.Sum()
Set bx = New Box : bx.v = "boxed" : WScript.Echo bx.v

' a one-line If whose parts are empty
If True Then :
If False Then : WScript.Echo "never"
If False Then WScript.Echo "never" Else :
WScript.Echo "empty ifs done"

' Case lines ending in a colon, and a first statement on the Case line
For Each v In Array(1, 2, "x")
  Select Case v
    Case 1:
      WScript.Echo "case one"
    Case 2 WScript.Echo "case two"
    Case Else: WScript.Echo "case else"
  End Select
Next

' >< is <>, as =< and => are <= and >=
WScript.Echo 1 >< 2, 2 >< 2, 1 =< 1, 2 => 3

' Property as a variable, a parameter, a class and a class's field
Dim Property : Property = 5 : WScript.Echo "property:", Property + 1
Function Prop(Property) Prop = Property & "!" End Function
WScript.Echo Prop("p")
Class Property
  Public Property
  Public Property Get Name : Name = "class Property" : End Property
End Class
Set pr = New Property : pr.Property = 7 : WScript.Echo pr.Name, pr.Property

' a call through a parenthesised name
Sub Show(x) : WScript.Echo "show", x : End Sub
(Show)(5)
Call (Show)(6)
x = (Twice)(21) : WScript.Echo "paren call:", x

' .name outside With compiles and fails only when it runs
On Error Resume Next
.Missing = 1
WScript.Echo "unqualified:", Err.Number, Err.Description : Err.Clear
x = .Missing
WScript.Echo "unqualified read:", Err.Number : Err.Clear
If False Then .Never
WScript.Echo "not run:", Err.Number
