' Every kind of parameter, given as variable, literal, expression, and left out.
Dim n, s, t, b, i, l, flag, ok

' A variant and a double by reference.
n = 11.4 : s = 5
Expect "RUP", velmar.RUP(n, s), CDbl(15)
Expect "RUP writes the whole number back", n, CDbl(11)
Expect "a variable becomes what the parameter is declared as", s, CDbl(5)
n = 11.4
Expect "RUP of an expression", velmar.RUP((n), 2 + 3), CDbl(15)
Expect "an expression is not written to", n, CDbl(11.4)
n = CInt(13)
Expect "R", velmar.R(n, "5"), CDbl(15)
Expect "a variant that did not change keeps its type", n, CInt(13)
velmar.RDN n, s                                 ' as a statement, without a result
Expect "lower case", velmar.rdn(12, 5), CDbl(10)

' Texts.
t = "straße Ünï"
Expect "UpperCase", velmar.UpperCase(t), "STRAßE ÜNÏ"
Expect "UpperCase writes it back", t, "STRAßE ÜNÏ"
t = 12
Expect "a number where a text belongs", velmar.UpperCase(t), "12"
Expect "the variable becomes a text", t, "12"
Expect "GetFolder", velmar.GetFolder("C:\a\b.dwg"), "C:\a"
Expect "GetFileName", velmar.GetFileName("plan.dwg"), "plan"
Expect "an empty variable is an empty text", velmar.UpperCase(l), ""
Expect "a 16-bit result", velmar.GetNs("plan 12"), CInt(12)

' A mixed comparison: numbers stay numbers, texts stay texts.
Expect "MAX", velmar.MAX(9, 10), CDbl(10)
Expect "Bt", velmar.Bt(2, 1, 3), CInt(1)

' Failures: number, text, and what was written before.
On Error Resume Next
n = 7.4 : s = 0
ok = velmar.RUP(n, s)
ExpectError "division by zero", 11, "Division by zero"
Expect "written before the failure", n, CDbl(7)

On Error Resume Next
s = "abc"
ok = velmar.RUP(1, s)
ExpectError "no number", 13, ""
Expect "and the variable stays", s, "abc"

On Error Resume Next
ok = velmar.ArcSin(Null)
ExpectError "Null", 13, ""

On Error Resume Next
velmar.ColDel 70000, "L"
ExpectError "too large for 16 bits", 6, ""

On Error Resume Next
ok = velmar.MAX(1)
ExpectError "too few", 449, ""
On Error Resume Next
ok = velmar.MAX(1, 2, 3)
ExpectError "too many", 450, ""
On Error Resume Next
ok = velmar.NoSuchMethod()
ExpectError "no such method", 438, ""

' Where there is no host, a method that needs one says so; conversions stay visible.
On Error Resume Next
t = 255
velmar.Del t
ExpectError "no host", 429, ""
On Error Resume Next
n = velmar.DisP(Array(0, 0, 0), Array(3, 4, 0))
ExpectError "an optional one left out; no host", 429, ""
On Error Resume Next
i = "3" : l = 4 : t = "L"
velmar.ColDel i, t
If Err.Number = 0 Then Err.Raise 1000, , "a host where there is none"
Err.Clear
On Error Goto 0
Expect "a 16-bit number by reference", i, CInt(3)
Host.Echo "calls: done"
