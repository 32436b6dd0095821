' Lexical forms: comments, continuation, separators, literals and their kinds.
Rem a comment with Rem
Dim a, b : a = 1 : b = 2 ' two statements and a comment
WScript.Echo a + _
  b
WScript.Echo "say ""hi""", Len(""""), "it's"
WScript.Echo TypeName(1), TypeName(32767), TypeName(32768), TypeName(2147483647), TypeName(2147483648)
WScript.Echo TypeName(1.0), TypeName(1e3), 1e3, 1.5E-3, .5
WScript.Echo &HFF, &HFFFF, TypeName(&HFFFF), &HFFFF&, TypeName(&HFFFF&), &H7FFFFFFF, &HFFFFFFFF
WScript.Echo &O17, &O177777, &10
WScript.Echo TypeName(#2003-01-02#), Year(#1/2/2003#), Month(#1/2/2003#), Day(#1/2/2003#)
WScript.Echo Hour(#1/2/2003 13:45:10#), Minute(#13:45:10#)
Dim [my var] : [my var] = "bracketed" : WScript.Echo [my var]
DIM UpPer : upper = "case-blind" : WScript.Echo UPPER
wscript.echo "methods are case-blind too"
WScript.Echo -32768, TypeName(-32768), TypeName(-32767), 2 ^ -1
