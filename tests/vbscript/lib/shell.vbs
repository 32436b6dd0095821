' WScript.Shell: programs, the environment, the current folder and the registry.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Hex(Err.Number)
  Err.Clear
End Sub

Set sh = CreateObject("WScript.Shell")
WScript.Echo TypeName(sh), sh.Run("true", 0, True), sh.Run("sh -c ""exit 3""", 0, True), sh.Run("true")
Set env = sh.Environment("Process")
env("ZW_LIB_T") = "abc"
WScript.Echo env("ZW_LIB_T"), sh.ExpandEnvironmentStrings("<%ZW_LIB_T%|%zw_lib_t%|%NO_SUCH_VAR_ZW%|100%>")
env.Remove "ZW_LIB_T"
WScript.Echo "[" & env("ZW_LIB_T") & "]", env.Count > 0
Set x = sh.Exec("sh -c ""echo out1; echo err1 >&2; echo out2; exit 4""")
WScript.Echo x.StdOut.ReadLine, "|", x.StdOut.ReadAll, "|", x.StdErr.ReadAll
Do While x.Status = 0
Loop
WScript.Echo x.Status, x.ExitCode, x.ProcessID > 0
' Run and Exec cut a command line alike, by the Windows rules: \" is a quote,
' \\ before a quote one backslash, and a quote left open runs to the end.
Set x = sh.Exec("printf <%s> a\""b ""c d"" e\\""f g"" h""i")
WScript.Echo x.StdOut.ReadAll, sh.Run("sh -c ""exit $#"" x a\""b c d""", 0, True)
Set c = sh.Exec("cat")
c.StdIn.WriteLine "echoed"
c.StdIn.Close
WScript.Echo c.StdOut.ReadLine, c.StdOut.AtEndOfStream
old = sh.CurrentDirectory
sh.CurrentDirectory = "/"
WScript.Echo sh.CurrentDirectory
sh.CurrentDirectory = old
WScript.Echo sh.CurrentDirectory = old
sh.CurrentDirectory = "/no/such/folder/zw": Chk "CurrentDirectory missing"
sh.Run "no_such_program_zw": Chk "Run missing program"
Set e = sh.Exec("no_such_program_zw"): Chk "Exec missing program"
v = sh.RegRead("HKLM\Software\ZunWizNoSuch\Value"): Chk "RegRead missing value"
v = sh.RegRead("HKXX\Software\X"): Chk "RegRead bad root"
