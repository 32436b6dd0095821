' Rosetta Code, task "Arithmetic-geometric mean", VBScript solution.
' Source: https://rosettacode.org/wiki/Arithmetic-geometric_mean#VBScript
' Licence: GNU Free Documentation License 1.3 (https://www.gnu.org/licenses/fdl-1.3.html).
' Unchanged except for this header.
Function agm(a,g)
	Do Until a = tmp_a
		tmp_a = a
		a = (a + g)/2
		g = Sqr(tmp_a * g)
	Loop
	agm = a
End Function

WScript.Echo agm(1,1/Sqr(2))
