' Stepping through time, within the data set and beyond both of its ends.
Option Explicit
Dim control, lines
Set control = CreateObject("Kelvane.KelvaneCtl")
control.SetCurrentTime 1
WScript.Echo control.ErrorMessage
control.NcFile WScript.Arguments(0) & "\tiny.nc"
control.NewSection
control.AddSection 354.5, -1
control.AddSection 354.5, 0.4
control.EndSection
WScript.Echo "from 1 by 1: " & control.AdvanceTime(1)
WScript.Echo "from 2 by 1: " & control.AdvanceTime(1)
WScript.Echo "from 1 by 5: " & control.AdvanceTime(5)
control.SetCurrentTime 2
WScript.Echo "from 2 by -5: " & control.AdvanceTime(-5)
WScript.Echo "from -3 by 3: " & control.AdvanceTime(3)
WScript.Echo "from 0 by 1: " & control.AdvanceTime(1)
control.SetCurrentTime 0
WScript.Echo "from 0 by 1: " & control.AdvanceTime(1)
control.SetCurrentTime 9
lines = Split(control.ErrorMessage, vbLf)
WScript.Echo lines(0)
WScript.Echo lines(1)
WScript.Echo Left(lines(2), 23)
WScript.Echo "from 9 by 0: " & control.AdvanceTime(0)
