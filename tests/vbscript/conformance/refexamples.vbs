' The language reference's examples for the built-ins no other case reaches
' (ScriptEngineBuildVersion, ScriptEngineMinorVersion, ChrB, MsgBox, InputBox), run as
' the reference gives them. The console host answers a box with its default button
' and an input box with its default text, and writes both to stderr.

' ScriptEngineBuildVersion's example
Function GetScriptEngineInfo
   Dim s
   s = ""   ' Build string with necessary info.
   s = ScriptEngine & " Version "
   s = s & ScriptEngineMajorVersion & "."
   s = s & ScriptEngineMinorVersion & "."
   s = s & ScriptEngineBuildVersion
   GetScriptEngineInfo = s   ' Return the results.
End Function
info = GetScriptEngineInfo
WScript.Echo "info:", Left(info, 17), info = "VBScript Version " & ScriptEngineMajorVersion & "." & _
  ScriptEngineMinorVersion & "." & ScriptEngineBuildVersion
WScript.Echo "kinds:", TypeName(ScriptEngineMajorVersion), TypeName(ScriptEngineMinorVersion), _
  TypeName(ScriptEngineBuildVersion), ScriptEngineBuildVersion > 0

' ChrB returns one byte of a string
Dim MyChar
MyChar = ChrB(65)
WScript.Echo "ChrB:", TypeName(MyChar), AscB(MyChar), AscB(ChrB(0)), AscB(ChrB(255))
On Error Resume Next
MyChar = ChrB(256)
WScript.Echo "ChrB(256):", Err.Number : Err.Clear
MyChar = ChrB(-1)
WScript.Echo "ChrB(-1):", Err.Number : Err.Clear
MyChar = ChrB(Null)
WScript.Echo "ChrB(Null):", Err.Number : Err.Clear
On Error GoTo 0

' MsgBox's example: OK and Cancel with the Information icon; OK is the default
Dim MyVar
MyVar = MsgBox ("Hello World!", 65, "MsgBox Example")
WScript.Echo "MsgBox:", MyVar, TypeName(MyVar)
WScript.Echo "Yes/No:", MsgBox("?", vbYesNo), MsgBox("?", vbYesNo + vbDefaultButton2)
WScript.Echo "Abort/Retry/Ignore:", MsgBox("?", vbAbortRetryIgnore + vbDefaultButton3)
MsgBox "as a statement"

' InputBox's example
Dim Input
Input = InputBox("Enter your name")
MsgBox ("You entered: " & Input)
WScript.Echo "InputBox:", "[" & Input & "]", TypeName(Input)
WScript.Echo "with a default:", InputBox("Name?", "Title", "Ana")
