' Rosetta Code, task "Day of the week", VBScript solution.
' Source: https://rosettacode.org/wiki/Day_of_the_week#VBScript
' Licence: GNU Free Documentation License 1.3 (https://www.gnu.org/licenses/fdl-1.3.html).
' Unchanged except for this header.
For i = 2008 To 2121
	If Weekday(i & "-12-25") = 1 Then
		WScript.StdOut.Write i
		WScript.StdOut.WriteLine
	End If
Next
