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

' Checks the error that the statement before raised (under On Error Resume Next), then clears it.
Sub CheckError(name, number, source, description)
  Check name, Err.Number & " " & Err.Source & ": " & Err.Description, number & " " & source & ": " & description
  Err.Clear
End Sub

' Prints the summary line that tests/com/run reads, and sets the exit code.
Sub Finish()
  WScript.Echo passed & " passed, " & failed & " failed"
  If failed > 0 Then WScript.Quit 1
  WScript.Quit 0
End Sub
