' Scripting.Dictionary: keys of each kind, order, default member, errors.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number & " " & Err.Description
  Err.Clear
End Sub

Set d = CreateObject("Scripting.Dictionary")
d.Add "a", 1
d.Add 1, "one"
d("b") = 2
d.Item("c") = 3
WScript.Echo TypeName(d), d.Count, d("a"), d(1), d(1.0), d.Exists("1"), d.Exists("A"), d.Exists(1)
x = d("missing")
WScript.Echo d.Count, IsEmpty(x), d.Exists("missing"), Join(d.Keys, ","), Join(d.Items, ","), d.Keys()(0), d.Items()(2)
d.Key("a") = "z"
d("z") = "zz"
For Each k In d
  WScript.Echo "key", k, d(k)
Next
d.Remove "b"
WScript.Echo d.Count, Join(d.Keys, ",")
d.Add "z", 5: Chk "Add existing"
d.Remove "nope": Chk "Remove missing"
d.Key("nope") = "q": Chk "Key missing"
d.Key("z") = 1: Chk "Key to existing"
d.CompareMode = 1: Chk "CompareMode when not empty"
d.RemoveAll
WScript.Echo d.Count, UBound(d.Keys)
d.CompareMode = vbTextCompare
d.Add "Key", 1
WScript.Echo d.Exists("KEY"), d("kEy"), d.CompareMode
d.Add "KEY", 2: Chk "Add same key in text mode"
Set o = CreateObject("Scripting.Dictionary")
Set d(o) = o
WScript.Echo TypeName(d(o)), d.Exists(o), d.Exists(CreateObject("Scripting.Dictionary"))
d.Add Empty, "e"
d.Add Null, "n"
WScript.Echo d(Empty), d(Null), d.Count
d.Add Array(1), 1: Chk "Array key"
x = d.Keys(9): Chk "Keys index out of range"
' Many renames and removals reuse the index without losing keys.
Set r = CreateObject("Scripting.Dictionary")
For i = 1 To 200
  r.Add "k" & i, i
Next
For i = 1 To 200
  r.Key("k" & i) = "n" & i
Next
For i = 1 To 150
  r.Remove "n" & i
Next
For i = 1 To 1000
  r.Key("n" & (151 + (i Mod 50))) = "t"
  r.Key("t") = "n" & (151 + (i Mod 50))
Next
n = 0
For i = 151 To 200
  n = n + r("n" & i)
Next
WScript.Echo r.Count, n, r.Exists("k1"), r.Exists("t"), r.Keys()(0)
