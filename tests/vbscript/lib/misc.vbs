' Constants, RGB, object creation and the other functions.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number & " " & Err.Description
  Err.Clear
End Sub

WScript.Echo Len(vbCrLf), Asc(vbCr), Asc(vbLf), Asc(vbTab), Len(vbNullString), Asc(vbNullChar), vbNewLine = vbCrLf, Asc(vbFormFeed), Asc(vbVerticalTab)
WScript.Echo vbObjectError, vbBinaryCompare, vbTextCompare, vbUseSystemDayOfWeek, vbSunday, vbSaturday, vbFirstJan1, vbFirstFourDays, vbFirstFullWeek
WScript.Echo vbGeneralDate, vbLongDate, vbShortDate, vbLongTime, vbShortTime, vbTrue, vbFalse, vbUseDefault
WScript.Echo vbOKOnly, vbOKCancel, vbAbortRetryIgnore, vbYesNoCancel, vbYesNo, vbRetryCancel, vbCritical, vbQuestion, vbExclamation, vbInformation, vbDefaultButton2, vbSystemModal
WScript.Echo vbOK, vbCancel, vbAbort, vbRetry, vbIgnore, vbYes, vbNo
WScript.Echo vbEmpty, vbNull, vbInteger, vbLong, vbSingle, vbDouble, vbCurrency, vbDate, vbString, vbObject, vbError, vbBoolean, vbVariant, vbByte, vbArray
WScript.Echo vbBlack, vbRed, vbGreen, vbBlue, vbWhite, TypeName(vbRed), TypeName(vbOKOnly)
WScript.Echo RGB(1, 2, 3), RGB(255, 255, 255) = vbWhite, RGB(300, 0, 0)
x = RGB(-1, 0, 0): Chk "RGB negative"
WScript.Echo ScriptEngine, ScriptEngineMajorVersion >= 5
Set o = GetObject("", "Scripting.Dictionary")
WScript.Echo TypeName(o)
Set o = GetObject("winmgmts:"): Chk "GetObject moniker"
Set o = CreateObject("No.Such.Thing"): Chk "CreateObject unknown"
x = LoadPicture("/no/such/picture.bmp"): Chk "LoadPicture missing"
