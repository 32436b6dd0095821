' Dates and times on the 30 December 1899 epoch: serials, overflow, arithmetic, parts.
On Error Resume Next
Sub Chk(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub
SetLocale 1033

WScript.Echo DateSerial(2020, 13, 1), DateSerial(2020, 3, 0), DateSerial(99, 1, 1), DateSerial(29, 1, 1), DateSerial(2020, 1, -1)
WScript.Echo TimeSerial(25, 0, 0), TimeSerial(0, 90, 0), TimeSerial(-1, 0, 0), CDbl(TimeSerial(-1, 0, 0)), TimeSerial(12, -15, 0)
WScript.Echo CDate(0), CDate(-1.5), CDate(1), CDate(0.75), CDbl(#12/30/1899#), CDbl(#1/1/100#), CDbl(#12/31/9999#)
WScript.Echo DateValue("Jan 5, 2020 3:00 PM"), TimeValue("Jan 5, 2020 3:00 PM"), DateValue("2020-02-29"), TimeValue("15:30")
WScript.Echo CDate("13/1/2020"), CDate("5 January 2020"), CDate("Thursday, January 2, 2020"), CDate("3 PM"), CDate("12:30:15 AM")
WScript.Echo IsDate("2/29/2020"), IsDate("2/30/2020"), IsDate("25:00"), IsDate(1), IsDate(#1/1/2020#), IsDate("1"), IsDate(Null)
d = #1/2/2020 3:04:05 PM#
WScript.Echo Year(d), Month(d), Day(d), Hour(d), Minute(d), Second(d), Weekday(d), Weekday(d, vbMonday), TypeName(Day(d)), IsNull(Year(Null))
WScript.Echo MonthName(1), MonthName(12, True), WeekdayName(1), WeekdayName(7, True), WeekdayName(1, False, vbMonday)
WScript.Echo DateAdd("m", 1, #1/31/1995#), DateAdd("yyyy", 1, #2/29/2020#), DateAdd("q", -1, #1/15/2020#), DateAdd("d", 1.5, #1/1/2020#)
WScript.Echo DateAdd("h", -7, #12/30/1899 6:00 AM#), DateAdd("n", 90, #1/1/2020 11:00 PM#), DateAdd("s", 1, #12/31/2019 11:59:59 PM#), DateAdd("ww", 2, #1/1/2020#), DateAdd("w", 1, #1/1/2020#)
WScript.Echo DateDiff("yyyy", #12/31/2019#, #1/1/2020#), DateDiff("m", #3/1/2020#, #1/31/2020#), DateDiff("d", #1/1/2020 11:00 PM#, #1/2/2020 1:00 AM#), DateDiff("h", #1/1/2020 12:59 AM#, #1/1/2020 1:00 AM#)
WScript.Echo DateDiff("ww", #1/1/2020#, #1/13/2020#), DateDiff("ww", #1/1/2020#, #1/12/2020#, vbMonday), DateDiff("w", #1/1/2020#, #1/14/2020#), DateDiff("q", #1/1/2020#, #12/31/2020#), DateDiff("s", #12/29/1899 11:00 PM#, #12/30/1899 1:00 AM#)
WScript.Echo DatePart("ww", #12/31/2020#), DatePart("ww", #1/3/2021#, vbMonday, vbFirstFourDays), DatePart("ww", #1/4/2021#, vbMonday, vbFirstFourDays), DatePart("ww", #1/9/2021#, vbSunday, vbFirstFullWeek)
WScript.Echo DatePart("y", #12/31/2020#), DatePart("q", #8/1/2020#), DatePart("w", #1/1/2020#, vbMonday), DatePart("h", #3:04:05 PM#), TypeName(DatePart("d", Now))
WScript.Echo TypeName(Now), TypeName(Date), TypeName(Time), TypeName(Timer), Date = Int(Now), Time < 1, Timer >= 0 And Timer < 86400
x = DateSerial(10000, 1, 1): Chk "DateSerial year 10000"
x = DateSerial(Null, 1, 1): Chk "DateSerial Null"
x = DateAdd("x", 1, Now): Chk "DateAdd bad interval"
x = DateAdd("yyyy", 9000, #1/1/2020#): Chk "DateAdd out of range"
x = DateDiff("d", "soon", Now): Chk "DateDiff text"
x = DatePart("ww", Now, 8): Chk "DatePart first day 8"
x = DatePart("ww", Now, 1, 4): Chk "DatePart first week 4"
x = Weekday(Now, -1): Chk "Weekday first day -1"
x = MonthName(13): Chk "MonthName 13"
x = WeekdayName(0): Chk "WeekdayName 0"
x = DateValue("soon"): Chk "DateValue text"
x = Day("x"): Chk "Day text"
