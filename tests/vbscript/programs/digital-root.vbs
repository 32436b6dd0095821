' Rosetta Code, task "Digital root", VBScript solution.
' Source: https://rosettacode.org/wiki/Digital_root#VBScript
' Licence: GNU Free Documentation License 1.3 (https://www.gnu.org/licenses/fdl-1.3.html).
' Unchanged except for this header; the command-line argument of the run is in digital-root.args.
Function digital_root(n)
	ap = 0
	Do Until Len(n) = 1
		x = 0
		For i = 1 To Len(n)
			x = x + CInt(Mid(n,i,1))
		Next
		n = x
		ap = ap + 1
	Loop
	digital_root = "Additive Persistence = " & ap & vbCrLf &_
		"Digital Root = " & n & vbCrLf	
End Function

WScript.StdOut.Write digital_root(WScript.Arguments(0))
