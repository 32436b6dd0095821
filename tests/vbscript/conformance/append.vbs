' Building texts with s = s & x: every kind of target and value, and no sharing surprises.
Dim s, t, i
s = "a"
t = s
s = s & "b"
WScript.Echo s, t
For i = 1 To 3 : s = s & i : Next
WScript.Echo s, Len(s)
u = s : s = s & s
WScript.Echo s, u
n = 5 : n = n & 1 : WScript.Echo n, TypeName(n)
z = Null : z = z & "x" : WScript.Echo z
e = Empty : e = e & Empty : WScript.Echo "[" & e & "]", TypeName(e)
q = "t" : q = q & True & Null & 1.5 : WScript.Echo q

' locals, by-reference parameters and class fields
Function Build(n)
  Dim r, k
  For k = 1 To n : r = r & Chr(64 + k) : Next
  Build = r
End Function
WScript.Echo Build(5)
Sub AddTo(ByRef p, x) : p = p & x : End Sub
Dim acc : acc = "<" : AddTo acc, "y" : AddTo acc, ">" : WScript.Echo acc
Class Log
  Public Text
  Sub Add(x) : Text = Text & x & ";" : End Sub
End Class
Dim lg : Set lg = New Log
lg.Add "one" : lg.Add "two" : WScript.Echo lg.Text
Dim arr(1) : arr(0) = "p" : arr(0) = arr(0) & "q" : WScript.Echo arr(0)

' a long text built piece by piece stays exact
Dim big : big = ""
For i = 1 To 20000 : big = big & "xy" : Next
WScript.Echo Len(big), Mid(big, 39999, 2), Left(big, 4)
' + joins texts too, but adds a text to a number
WScript.Echo "1" + "2", "1" + 2, "a" & 1 + 2
