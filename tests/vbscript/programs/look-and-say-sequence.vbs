' Rosetta Code, task "Look-and-say sequence", VBScript solution.
' Source: https://rosettacode.org/wiki/Look-and-say_sequence#VBScript
' Licence: GNU Free Documentation License 1.3 (https://www.gnu.org/licenses/fdl-1.3.html).
' Unchanged except for this header; the page's two code blocks (definition, then use) are joined here.
function looksay( n )
	dim i
	dim accum
	dim res
	dim c
	res = vbnullstring
	do
		if n = vbnullstring then exit do
		accum = 0
		c = left( n,1 )
		do while left( n, 1 ) = c
			accum = accum + 1
			n = mid(n,2)
		loop
		if accum > 0 then
			res = res & accum & c
		end if
	loop
	looksay = res
end function
dim m
m = 1
for i = 0 to 13
	m = looksay(m)
	wscript.echo m
next
