' Execute, ExecuteGlobal, Eval and GetRef.
Dim x : x = 2
Execute "x = x * 10"
WScript.Echo "execute", x
ExecuteGlobal "Function Added(a) : Added = a + x : End Function"
WScript.Echo "executeglobal", Added(1)
WScript.Echo "eval", Eval("x + 1"), Eval("x = 20"), TypeName(Eval("""s"""))
Execute "Dim made : made = ""new global"""
WScript.Echo made

' Execute inside a procedure sees its locals; ExecuteGlobal does not
Sub Inside()
  Dim loc : loc = 1
  Execute "loc = loc + 41"
  WScript.Echo "local", loc, Eval("loc * 2")
  ExecuteGlobal "x = 99"
End Sub
Inside
WScript.Echo "global from inside", x

' GetRef gives a procedure to call later
Function Twice(n) : Twice = n * 2 : End Function
Sub Hello(who) : WScript.Echo "hello", who : End Sub
Dim f : Set f = GetRef("Twice")
WScript.Echo "getref", f(21), TypeName(f)
Set f = GetRef("hello")
f "world"
Call f("again")

' errors inside the text run
On Error Resume Next
Execute "y = 1 / 0"
WScript.Echo "error in execute", Err.Number : Err.Clear
x = Eval("1 +")
WScript.Echo "syntax error in eval", Err.Number : Err.Clear
Set f = GetRef("NoSuchProc")
WScript.Echo "getref unknown", Err.Number : Err.Clear
