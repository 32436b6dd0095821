' Rosetta Code, task "Accumulator factory", VBScript solution.
' Source: https://rosettacode.org/wiki/Accumulator_factory#VBScript
' Licence: GNU Free Documentation License 1.3 (https://www.gnu.org/licenses/fdl-1.3.html).
' Unchanged except for this header; the page's two code blocks (definition, then use) are joined here.
class accumulator
	dim A
	public default function acc(x)
		A = A + x
		acc = A
	end function
	public property get accum
		accum = A
	end property
end class
dim a
set a = new accumulator
x = a( 1 )
a 5
dim b
set b = new accumulator
b 3
wscript.echo a(2.3)
