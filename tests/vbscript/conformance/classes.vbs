' Classes: fields, methods, properties, default members, Initialize and Terminate.
Class Counter
  Private count_
  Public Name
  Private Sub Class_Initialize()
    count_ = 0
    Name = "unnamed"
    WScript.Echo "init"
  End Sub
  Private Sub Class_Terminate()
    WScript.Echo "terminate " & Name
  End Sub
  Public Sub Add(n) : count_ = count_ + n : End Sub
  Public Function Next1() : count_ = count_ + 1 : Next1 = count_ : End Function
  Public Property Get Count() : Count = count_ : End Property
  Public Property Let Count(v)
    If v < 0 Then Err.Raise 5
    count_ = v
  End Property
  Public Default Property Get Item(i) : Item = Name & "#" & i : End Property
  Public Function Self() : Set Self = Me : End Function
End Class

Dim c : Set c = New Counter
c.Name = "c1"
c.Add 5
WScript.Echo c.Count, c.Next1(), c.Next1
c.Count = 40
WScript.Echo c.Count, c(7), c.Item(8)
WScript.Echo TypeName(c), IsObject(c), c Is c.Self(), VarType(c)
Dim d : Set d = c
Set c = Nothing
WScript.Echo "still held by d"
Set d = Nothing
WScript.Echo "released"

' an object that goes out of scope at the end of a procedure
Sub Scoped()
  Dim o : Set o = New Counter
  o.Name = "scoped"
End Sub
Scoped
WScript.Echo "after scoped"

' Property Set, objects in fields, and Nothing
Class Holder
  Private obj_
  Public Property Set Obj(o) : Set obj_ = o : End Property
  Public Property Get Obj() : Set Obj = obj_ : End Property
  Public Function HasObj() : HasObj = Not IsEmpty(obj_) And IsObject(obj_) : End Function
End Class
Dim h : Set h = New Holder
Set h.Obj = New Counter
h.Obj.Name = "held"
WScript.Echo h.Obj.Name, h.HasObj()
Set h = Nothing
WScript.Echo "holder gone"

' errors: a missing member, Set without an object, Let of an object without a default
Class Plain
  Public X
End Class
On Error Resume Next
Dim p : Set p = New Plain
p.Missing = 1
WScript.Echo "missing member", Err.Number : Err.Clear
Dim pc : Set pc = New Counter
x = pc.count_
WScript.Echo "private field from outside", Err.Number : Err.Clear
pc.Name = "private test"
Set pc = Nothing
Set p.X = 5
WScript.Echo "set without object", Err.Number : Err.Clear
Dim q : q = p
WScript.Echo "no default", Err.Number : Err.Clear
Set q = New Undefined
WScript.Echo "undefined class", Err.Number : Err.Clear
Dim n : Set n = Nothing
WScript.Echo n.X
WScript.Echo "nothing", Err.Number, Err.Description : Err.Clear
WScript.Echo n Is Nothing, p Is Nothing, p Is p
x = 1 Is 1
WScript.Echo "is on numbers", Err.Number : Err.Clear
On Error GoTo 0

' a class with array fields and a property with arguments
Class Grid
  Private cells(2, 2)
  Public Property Get Cell(r, c) : Cell = cells(r, c) : End Property
  Public Property Let Cell(r, c, v) : cells(r, c) = v : End Property
End Class
Dim gr : Set gr = New Grid
gr.Cell(1, 2) = "x"
WScript.Echo "grid", gr.Cell(1, 2), IsEmpty(gr.Cell(0, 0))
WScript.Echo "end"
