' The console host's WScript object.
WScript.Echo "name", WScript.ScriptName, WScript.Arguments.Count, WScript.Arguments.Length
WScript.Echo "first", WScript.Arguments(0), WScript.Arguments.Item(1)
Dim a, s
For Each a In WScript.Arguments : s = s & "<" & a & ">" : Next
WScript.Echo "each", s
WScript.Echo
WScript.Echo "many", 1, "two", 3.5, True, Empty
WScript.StdOut.Write "no line end;"
WScript.StdOut.WriteLine " then one"
WScript.Sleep 1
WScript.Echo "full name ends with script", Right(WScript.ScriptFullName, 11) = "wscript.vbs"
On Error Resume Next
x = WScript.Arguments(3)
WScript.Echo "past the last argument", Err.Number
On Error GoTo 0
WScript.Quit 0
WScript.Echo "never"
