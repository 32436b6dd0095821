' Names made by assignment at script level without Dim, used inside procedures:
' each reference reaches the global once it exists, for reads and writes alike.
Sub Bump
  count = count + 1
End Sub
count = 0
Bump : Bump : Bump
WScript.Echo "counter:", count

Function Total
  list(0) = 10
  Total = list(0) + list(1) + UBound(list)
  list(1) = 100
End Function
list = Array(1, 2, 3)
WScript.Echo "array:", Total(), list(0), list(1), IsArray(list)

' before the global exists the name is the procedure's own; afterwards it is the global
Sub Early
  late = "local"
  seen = late
End Sub
Early
WScript.Echo "before:", "[" & late & "]"
late = "global"
Early
WScript.Echo "after:", late

' a name first read, then written, then appended to in one procedure
Sub Mixed
  text = text & "b"
  text = text & "c"
  If Len(text) > 0 Then text = "[" & text & "]"
End Sub
text = "a"
Mixed
WScript.Echo "mixed:", text

' loops and For Each reach the global too
Sub Loops
  For i = 1 To 3 : acc = acc + i : Next
  For Each v In Array(10, 20) : acc = acc + v : Next
End Sub
acc = 0
Loops
WScript.Echo "loops:", acc

' ReDim of a name the procedure does not declare resizes the global of that
' name when one exists; with none it makes the procedure's own array
Sub Grow
  ReDim gu(7)
  gu(7) = "last"
End Sub
gu = Array(1, 2)
Grow
WScript.Echo "redim global:", UBound(gu), gu(7)
Sub Keep2
  ReDim Preserve gk(3)
End Sub
gk = Array("a", "b")
Keep2
WScript.Echo "redim preserve global:", UBound(gk), gk(1)
Sub Own
  ReDim mine(2)
  mine(2) = 5
  WScript.Echo "redim own:", UBound(mine), mine(2)
End Sub
Own
WScript.Echo "own stays inside:", IsEmpty(mine)
