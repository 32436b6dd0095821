' A run-time error resets the whole Err object: the help file and help context an
' earlier Err.Raise set are empty and 0 after it, and Source is the engine's own.
On Error Resume Next

Err.Raise 1000, "Mine", "my error", "help.chm", 42
WScript.Echo "raised:", Err.Number, Err.Source, Err.Description, Err.HelpFile, Err.HelpContext
x = 1 / 0
WScript.Echo "run-time:", Err.Number, Err.Source, Err.Description, "[" & Err.HelpFile & "]", Err.HelpContext
Err.Clear

' arguments Raise leaves out keep what the last error left
Err.Raise 1001, "Mine", "first", "keep.chm", 7
Err.Raise 1002
WScript.Echo "kept:", Err.Number, Err.Source, "[" & Err.HelpFile & "]", Err.HelpContext
Err.Clear

' set by hand, then an error in a procedure that reaches this level
Err.HelpFile = "hand.chm" : Err.HelpContext = 9
Sub Fails() : Dim a(1) : a(5) = 1 : End Sub
Fails
WScript.Echo "from a procedure:", Err.Number, "[" & Err.HelpFile & "]", Err.HelpContext
Err.Clear

' Raise inside a procedure passes its help on to the handler
Sub RaiseIn() : Err.Raise 1003, "In", "inner", "in.chm", 3 : End Sub
RaiseIn
WScript.Echo "raise in a procedure:", Err.Number, Err.HelpFile, Err.HelpContext
Set o = Nothing
o.Go
WScript.Echo "object required:", Err.Number, "[" & Err.HelpFile & "]", Err.HelpContext
