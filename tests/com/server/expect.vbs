' For all scripts: they end with an error at the first thing that is not as expected.
Option Explicit
Dim velmar
Set velmar = CreateObject("VelmarMenu.Velmar16")

Sub Expect(what, actual, expected)
    If VarType(actual) <> VarType(expected) Then
        Err.Raise 1000, "Expect", what & ": type " & VarType(actual) & ", expected " & VarType(expected)
    End If
    If Not IsEmpty(actual) Then
        If actual <> expected Then
            Err.Raise 1000, "Expect", what & ": " & actual & ", expected " & expected
        End If
    End If
End Sub

' After a statement under On Error Resume Next.
Sub ExpectError(what, number, description)
    Dim found, said
    found = Err.Number
    said = Err.Description
    Err.Clear
    On Error Goto 0
    If found <> number Then
        Err.Raise 1000, "ExpectError", what & ": error " & found & " " & said & ", expected " & number
    End If
    If description <> "" And said <> description Then
        Err.Raise 1000, "ExpectError", what & ": """ & said & """, expected """ & description & """"
    End If
End Sub
