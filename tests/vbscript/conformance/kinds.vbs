' Kinds of the results of Abs, Int, Fix, Sgn and negation for each kind of argument:
' Abs(True) is the Integer 1 (the magnitude), Int/Fix keep a Boolean's -1 as an Integer,
' Sgn is always an Integer, and a Byte negated widens to Integer.
Dim v
For Each v In Array(True, False, Empty, "-3", CByte(4), CCur(-2.5), CSng(-1.5), #1/2/2000#, -32768, CLng(-5))
  WScript.Echo TypeName(v), "Abs:", TypeName(Abs(v)), Abs(v), "Int:", TypeName(Int(v)), Int(v), _
    "Fix:", TypeName(Fix(v)), Fix(v), "Sgn:", TypeName(Sgn(v)), Sgn(v), "Neg:", TypeName(-v), -v
Next
WScript.Echo IsNull(Abs(Null)), Abs("a" <> "b") + Abs("a" = "a")
