' Every statement form: If, Select Case, For, For Each, Do, While, With, Exit.
Dim i, j, s, x

' If, block and single-line, with ElseIf and Else
For i = 1 To 4
  If i = 1 Then
    s = "one"
  ElseIf i = 2 Then
    s = "two"
  ElseIf i = 3 Then s = "three-ish"
  Else
    s = "other"
  End If
  WScript.Echo i, s
Next
If i > 4 Then WScript.Echo "single" Else WScript.Echo "no"
If i < 4 Then WScript.Echo "no" Else WScript.Echo "else part" : WScript.Echo "both in else"
If i = 5 Then s = "a" : s = s & "b"
WScript.Echo s
If Null Then WScript.Echo "null is true" Else WScript.Echo "null is false"
If Empty Then WScript.Echo "empty true" Else WScript.Echo "empty false"

' Select Case with lists, Is, ranges and Case Else
For Each x In Array(1, 4, 7, 12, "b", 100)
  Select Case x
    Case 1, 2
      s = "one or two"
    Case 3 To 8
      s = "three to eight"
    Case "a", "b"
      s = "letter"
    Case Is >= 100
      s = "big"
    Case Else
      s = "else"
  End Select
  WScript.Echo x, s
Next
Select Case "x"
End Select

' For with Step, negative and fractional steps; the counter after the loop
s = ""
For i = 10 To 1 Step -3 : s = s & i & " " : Next
WScript.Echo s, i
s = ""
For i = 0 To 1 Step 0.25 : s = s & i & " " : Next
WScript.Echo s
For i = 5 To 1 : WScript.Echo "never" : Next
WScript.Echo "empty range leaves", i
For i = 1 To 3
  For j = 1 To 3
    If j = 2 Then Exit For
    WScript.Echo i, j
  Next
Next
' one Next closing two loops
s = ""
For i = 1 To 2
  For j = 1 To 2
    s = s & i & j & " "
Next j, i
WScript.Echo "next j, i:", s
' the limit is read once
j = 3
For i = 1 To j : j = 10 : Next
WScript.Echo i

' For Each over arrays, two dimensions, and an empty array
s = ""
Dim m(1, 2)
m(0, 0) = "a" : m(1, 0) = "b" : m(0, 2) = "c"
For Each x In m : s = s & "[" & x & "]" : Next
WScript.Echo s
For Each x In Array() : WScript.Echo "never" : Next

' Do in all its forms
i = 0
Do While i < 3 : i = i + 1 : Loop
WScript.Echo "while", i
Do Until i = 0 : i = i - 1 : Loop
WScript.Echo "until", i
Do : i = i + 1 : Loop While i < 5
WScript.Echo "loop while", i
Do : i = i + 1 : Loop Until i >= 7
WScript.Echo "loop until", i
Do
  i = i + 1
  If i = 9 Then Exit Do
Loop
WScript.Echo "exit do", i
Do : i = i - 1 : Loop While False
WScript.Echo "runs once", i

' While ... Wend
While i > 0 : i = i - 4 : Wend
WScript.Echo "wend", i

' With, nested, and the object released at End With
Class Box
  Public V, Inner
End Class
Dim bx : Set bx = New Box
Set bx.Inner = New Box
With bx
  .V = 1
  With .Inner
    .V = 2
  End With
  .V = .V + .Inner.V
End With
WScript.Echo "with", bx.V, bx.Inner.V

' Stop does nothing
Stop
WScript.Echo "end"
