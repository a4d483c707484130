' Shared by every suite: tests/com/run puts these checks in front of each suite before running it
' (wine's VBScript has no ExecuteGlobal to include them).
Option Explicit
Dim passed, failed
passed = 0
failed = 0

Sub Check(name, actual, expected)
  If actual = expected Then
    passed = passed + 1
  Else
    failed = failed + 1
    WScript.Echo "FAIL " & name & ": got " & TypeName(actual) & " '" & actual & "', expected '" & expected & "'"
  End If
End Sub

' The subtype as VarType tells it: 3 Long, 8 String, 11 Boolean.
Sub CheckType(name, value, expected)
  Check name & " (VarType)", VarType(value), expected
End Sub

' Checks the error that the statement before raised (under On Error Resume Next), then clears it.
Sub CheckError(name, number, source, description)
  Dim n, s, d
  n = Err.Number
  s = Err.Source
  d = Err.Description
  Err.Clear
  Check name & " (number)", n, number
  Check name & " (source)", s, source
  Check name & " (description)", d, description
End Sub

' Prints the summary line that tests/com/run reads, and sets the exit code.
Sub Finish()
  WScript.Echo passed & " passed, " & failed & " failed"
  If failed > 0 Then WScript.Quit 1
  WScript.Quit 0
End Sub
