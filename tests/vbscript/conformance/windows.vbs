' Corners of the language where Windows' behaviour is the rule.
On Error Resume Next

' a literal is hard-typed in a comparison; two variables keep "a number is less than a text"
s = "10" : n = 10 : t = "9"
WScript.Echo "literal:", s = 10, 10 = s, s > 9, n = "10", n < "9"
WScript.Echo "variables:", s = n, n < t, t > n
Select Case s
  Case 10 : WScript.Echo "case: numeric literal matches"
  Case Else : WScript.Echo "case: else"
End Select
Select Case n
  Case "10" : WScript.Echo "case: text literal matches"
End Select
Select Case s
  Case 5 To 20 : WScript.Echo "case: range of literals"
End Select

' negation binds tighter than ^
WScript.Echo "power:", -3 ^ 2, 2 ^ -1, -2 ^ 3, 2 ^ 3 ^ 2

' a hexadecimal literal with & takes the smallest kind that holds it
WScript.Echo "hex:", TypeName(&hFF&), TypeName(&h7FFF&), TypeName(&h8000&), &h8000&, TypeName(&hFFFF), &hFFFF

' a ByRef argument of a function called in another call's arguments is written back
Function AddOne(ByRef v) : v = v + 1 : AddOne = v : End Function
Function Pass(x) : Pass = x : End Function
k = 1 : r = Pass(AddOne(k))
WScript.Echo "nested byref:", k, r

' an argument in its own parentheses passes a copy, of arrays and their elements too
Sub Change(x) : x(0) = "changed" : End Sub
Sub ChangeScalar(x) : x = "changed" : End Sub
arr = Array("kept", "kept")
Change (arr)
WScript.Echo "paren array:", arr(0)
Change arr
WScript.Echo "plain array:", arr(0)
arr(1) = "kept"
ChangeScalar (arr(1))
WScript.Echo "paren element:", arr(1)
ChangeScalar arr(1)
WScript.Echo "plain element:", arr(1)

' a script-level Dim with bounds makes its array when the line runs
WScript.Echo "before dim:", IsArray(late), TypeName(late)
Dim late(3)
WScript.Echo "after dim:", IsArray(late), UBound(late)

' ReDim of a fixed array fails with 10 before its bounds are looked at
Dim fixed(2)
ReDim fixed("x")
WScript.Echo "redim fixed:", Err.Number : Err.Clear

' New RegExp is the built-in object even beside a class of that name
Class RegExp
  Public Pattern
End Class
Set re = New RegExp
WScript.Echo "new regexp:", TypeName(re)

' a method call on Nothing needs an object
Set nothingVar = Nothing
nothingVar.DoIt
WScript.Echo "call on Nothing:", Err.Number, Err.Description : Err.Clear
x = nothingVar.Prop
WScript.Echo "read on Nothing:", Err.Number : Err.Clear

' a Single compared with a Double compares at the Single's precision
sg = CSng(1.1)
WScript.Echo "single:", sg = 1.1, CSng(0.1) = 0.1, CDbl(sg) = 1.1

' conversions
WScript.Echo "cbool:", CBool("#TRUE#"), CBool("#FALSE#"), CByte(True), CByte(False)
WScript.Echo "round:", TypeName(Round(True)), Round(True), TypeName(Round(CByte(3)))
WScript.Echo "vbMsgBoxHelpButton:", TypeName(vbMsgBoxHelpButton), vbMsgBoxHelpButton
Call CInt(1)
WScript.Echo "call CInt:", Err.Number : Err.Clear
CStr 1
WScript.Echo "CStr statement:", Err.Number : Err.Clear
x = Randomize(0)
WScript.Echo "randomize value:", Err.Number : Err.Clear
Randomize 0
WScript.Echo "randomize statement:", Err.Number

' built-ins check a Null argument before the others, as Windows does
x = InStrRev("abc", "b", 0, Null) : WScript.Echo "instrrev:", Err.Number : Err.Clear
x = Mid("abc", 0, Null) : WScript.Echo "mid:", Err.Number : Err.Clear
x = MonthName(13, Null) : WScript.Echo "monthname:", Err.Number : Err.Clear
x = Right(Null, -1) : WScript.Echo "right:", Err.Number : Err.Clear
x = Left(Null, 2) : WScript.Echo "left:", Err.Number, IsNull(x) : Err.Clear
x = FormatNumber(Null) : WScript.Echo "formatnumber:", Err.Number : Err.Clear
x = FormatDateTime(Null) : WScript.Echo "formatdatetime:", Err.Number : Err.Clear
x = FormatPercent(Null) : WScript.Echo "formatpercent:", Err.Number : Err.Clear
WScript.Echo "byte forms:", MidB("abcd", 3, 4), LeftB("abcd", 4), RightB("abcd", 2)

' Err.Raise
Err.Raise 0 : WScript.Echo "raise 0:", Err.Number, Err.Description : Err.Clear
Err.Raise &h10000 : WScript.Echo "raise &h10000:", Err.Number : Err.Clear
Err.Raise &h8007000E : WScript.Echo "raise E_OUTOFMEMORY:", Err.Number, Err.Description : Err.Clear
Err.Raise 1000, "src", "desc", "help.chm", 42
WScript.Echo "help:", Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext
Err.Raise 1001
WScript.Echo "kept:", Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext
Err.Clear
Err.Raise 5
WScript.Echo "after clear:", Err.Number, Err.Source, Err.Description, "[" & Err.HelpFile & "]" : Err.Clear

' numbers as text
WScript.Echo "text:", 1 / 36, CSng("0.01") + 0.01, 0.05, 0.001, 1 / 3, 0.00001, 123.456
' RegExp.Replace with a Boolean replacement
Set re = CreateObject("VBScript.RegExp") : re.Pattern = "b"
WScript.Echo "replace:", re.Replace("abc", True), re.Replace("abc", False)
