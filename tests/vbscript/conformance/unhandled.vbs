WScript.Echo "before"
Dim x
x = 1
x = x / 0
WScript.Echo "never"
