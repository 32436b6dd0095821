' Bad and hostile code: every failure is a run-time error that On Error can
' catch, and the statement after the failing one runs.
On Error Resume Next

' For Each over what is not a collection goes on after the loop
For Each x In Empty
  WScript.Echo "never: Empty"
Next
WScript.Echo "for each Empty:", Err.Number, Err.Description : Err.Clear
For Each x In 42
  WScript.Echo "never: number"
Next
WScript.Echo "for each number:", Err.Number : Err.Clear
Set o = CreateObject("No.Such.Object")
WScript.Echo "create:", Err.Number : Err.Clear
For Each x In o
  WScript.Echo "never: failed object"
Next
WScript.Echo "for each failed object:", Err.Number : Err.Clear
For Each x In Nothing
  WScript.Echo "never: Nothing"
Next
WScript.Echo "for each Nothing:", Err.Number : Err.Clear

' a For whose bounds failed runs into its Next, which is not initialized
n = 0
For i = 1 To 1 / 0
  n = n + 1
Next
WScript.Echo "for bounds:", n, Err.Number, Err.Description : Err.Clear
' ... also when the same loop ran properly before
For k = 1 To 2
  lim = 3 : If k = 2 Then lim = "x"
  m = 0
  For j = 1 To lim
    m = m + 1
  Next
  WScript.Echo "pass", k, m, Err.Number : Err.Clear
Next

' a Select Case whose test failed runs no Case
Select Case 1 / 0
  Case Else
    WScript.Echo "never: Case Else"
End Select
WScript.Echo "select:", Err.Number : Err.Clear

' Execute, ExecuteGlobal and Eval that run themselves stop at the call depth
Sub Ex(n) : Execute "Ex " & (n + 1) : End Sub
Ex 1
WScript.Echo "execute:", Err.Number, Err.Description : Err.Clear
Sub ExG(n) : ExecuteGlobal "ExG " & (n + 1) : End Sub
ExG 1
WScript.Echo "executeglobal:", Err.Number : Err.Clear
Function Ev(n) : Ev = Eval("Ev(" & (n + 1) & ")") : End Function
x = Ev(1)
WScript.Echo "eval:", Err.Number : Err.Clear

' very long expressions: chains run, nesting beyond the limit fails cleanly
Execute "x = " & Replace(String(50000, "+"), "+", "1+") & "1"
WScript.Echo "long sum:", x, Err.Number : Err.Clear
Execute "x = " & Replace(String(50000, "&"), "&", "2 & ") & "3"
WScript.Echo "long concat:", Len(x), Err.Number : Err.Clear
Execute "x = " & Replace(String(50000, "N"), "N", "Not ") & "0"
WScript.Echo "long not:", Err.Number : Err.Clear
Execute "x = " & String(50000, "(") & "1" & String(50000, ")")
WScript.Echo "deep parentheses:", Err.Number : Err.Clear
Execute "x = " & Replace(String(50000, "-"), "-", "- ") & "5"
WScript.Echo "long signs:", x, Err.Number : Err.Clear
Execute "x = Array(" & Replace(String(50000, ","), ",", "1,") & "1)"
WScript.Echo "many arguments:", Err.Number : Err.Clear

' array bounds: below -1, past a Long, more elements than memory, many dimensions
Dim a
ReDim a(-2)
WScript.Echo "redim -2:", Err.Number : Err.Clear
ReDim a(2147483647)
WScript.Echo "redim 2147483647:", Err.Number : Err.Clear
ReDim a(2147483646)
WScript.Echo "redim huge:", Err.Number : Err.Clear
ReDim a(65535, 65535, 65535, 65535)
WScript.Echo "redim wraps:", Err.Number : Err.Clear
ReDim a(2, 3)
WScript.Echo "redim fine:", UBound(a, 2), Err.Number : Err.Clear
Execute "Dim big(65535, 65535, 65535, 65535)"
WScript.Echo "dim wraps:", Err.Number : Err.Clear
Execute "Dim bigc(5000000000)"
WScript.Echo "dim constant out of range:", Err.Number : Err.Clear
Class Neg
  Public f(-5)
End Class
Set o = New Neg
WScript.Echo "class field -5:", Err.Number, TypeName(o) : Err.Clear
Class Huge
  Dim f(65535, 65535, 65535)
End Class
Set o = New Huge
WScript.Echo "class field huge:", Err.Number : Err.Clear
x = Space(2147483647)
WScript.Echo "space:", Err.Number : Err.Clear
Dim rounds, order, count
' releasing long chains: a list of instances, arrays inside arrays, dictionaries
' inside dictionaries; the objects' Class_Terminate all run, in order
Class Node
  Public nxt
End Class
Set head = Nothing
For i = 1 To 300000
  Set n = New Node
  Set n.nxt = head
  Set head = n
Next
Set n = Nothing
Set head = Nothing
WScript.Echo "list released:", Err.Number : Err.Clear
a = Array()
For i = 1 To 300000 : a = Array(a) : Next
b = a
a = Empty : b = Empty
WScript.Echo "nested arrays copied and released:", Err.Number : Err.Clear
Set h = Nothing
For i = 1 To 300000
  Set d = CreateObject("Scripting.Dictionary")
  d.Add "x", h
  Set h = d
Next
Set d = Nothing : Set h = Nothing
WScript.Echo "dictionaries released:", Err.Number : Err.Clear
Class Counted
  Public nxt, id
  Private Sub Class_Terminate
    count = count + 1
    If id <= 3 Or id > 199997 Then order = order & " " & id
  End Sub
End Class
Set head = Nothing
For i = 200000 To 1 Step -1
  Set n = New Counted
  n.id = i
  Set n.nxt = head
  Set head = n
Next
Set n = Nothing
Set head = Nothing
WScript.Echo "terminated:", count, order, Err.Number : Err.Clear

' a Class_Terminate that makes and drops an object of its own class stops
Class Again
  Private Sub Class_Terminate
    rounds = rounds + 1
    Set z = New Again
  End Sub
End Class
Set t = New Again : Set t = Nothing
WScript.Echo "terminate making its own class:", rounds > 100, rounds < 100000, Err.Number : Err.Clear

' member and index chains nested beyond the limit fail cleanly
Set o = Nothing
Execute "x = o" & Replace(String(100000, "."), ".", ".a")
WScript.Echo "long member chain:", Err.Number : Err.Clear
Execute "x = o" & Replace(String(100000, "("), "(", "(1)")
WScript.Echo "long index chain:", Err.Number : Err.Clear
Execute "x = Array(Array(7))" & Replace(String(2, "("), "(", "(0)")
WScript.Echo "short index chain:", x, Err.Number : Err.Clear

' RegExp patterns of deeply nested repeats compile in time linear in their depth
Set rx = New RegExp
rx.Pattern = "a"
For k = 1 To 60 : rx.Pattern = "(?:" & rx.Pattern & "){1}" : Next
WScript.Echo "nested repeats:", rx.Test("xa"), Err.Number : Err.Clear
rx.Pattern = "(?:(?:(?:){3}){2}){9}x"
WScript.Echo "nested empty repeats:", rx.Test("x"), Err.Number : Err.Clear
rx.Pattern = "(a){0}b((c){0}){2}"
Set m = rx.Execute("ab")
WScript.Echo "repeated zero times:", m(0).Value, "[" & m(0).SubMatches(0) & "]", "[" & m(0).SubMatches(1) & "]", Err.Number : Err.Clear
WScript.Echo "still running"
