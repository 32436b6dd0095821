' Arrays: fixed and dynamic, several dimensions, ReDim Preserve, Erase, copies.
Dim a(3), b(), m(2, 3), i, s
WScript.Echo UBound(a), LBound(a), UBound(m), UBound(m, 2), IsArray(b), TypeName(b)
For i = 0 To 3 : a(i) = i * 10 : Next
WScript.Echo Join(a, ",")
m(2, 3) = "corner" : WScript.Echo m(2, 3), IsEmpty(m(0, 0))

ReDim b(2) : b(0) = "x" : b(2) = "z"
ReDim Preserve b(4) : WScript.Echo UBound(b), b(0), b(2), IsEmpty(b(4))
ReDim Preserve b(1) : WScript.Echo UBound(b), b(0)
ReDim b(1) : WScript.Echo "redim clears", IsEmpty(b(0))
Dim c : ReDim c(1, 1) : c(1, 1) = 4
ReDim Preserve c(1, 3) : WScript.Echo "last dimension grows", c(1, 1), UBound(c, 2)

' assignment copies an array; so does ByVal
Dim d : d = a : d(0) = "changed" : WScript.Echo "copy", a(0), d(0)
Sub Mutate(arr) : arr(1) = "by ref" : End Sub
Sub MutateV(ByVal arr) : arr(1) = "by val" : End Sub
Mutate a : MutateV a : WScript.Echo a(1)

' arrays inside arrays
Dim n : n = Array(Array(1, 2), Array(3, Array(4, 5)))
WScript.Echo n(1)(1)(0), UBound(n(1)(1))
n(0)(1) = 20 : WScript.Echo n(0)(1)

' Erase: a fixed array keeps its size, a dynamic one loses it
Erase a : WScript.Echo "erased fixed", UBound(a), IsEmpty(a(0))
Erase b
On Error Resume Next
WScript.Echo UBound(b)
WScript.Echo "erased dynamic", Err.Number : Err.Clear
x = a(4) : WScript.Echo "out of range", Err.Number : Err.Clear
x = m(1) : WScript.Echo "wrong dimension count", Err.Number : Err.Clear
ReDim a(5) : WScript.Echo "redim fixed", Err.Number : Err.Clear
x = a("1") : WScript.Echo "index as text", Err.Number, IsEmpty(x) : Err.Clear
x = a(1.6) : WScript.Echo "index rounded", Err.Number : Err.Clear
Dim e : e = Array() : WScript.Echo "empty array", UBound(e), LBound(e)
ReDim f(2) : f(2) = "declared by ReDim" : WScript.Echo f(2)
' a running For Each over a changed element sees the change
Dim g : g = Array(1, 2, 3) : s = ""
For Each i In g : g(2) = 30 : s = s & i & " " : Next
WScript.Echo s
