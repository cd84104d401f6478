' Data sets that cannot be opened: the failure value, the reason, and a control that goes on.
Option Explicit
Dim control, folder
folder = WScript.Arguments(0)
Set control = CreateObject("Kelvane.KelvaneCtl")
WScript.Echo control.NcFile(folder & "\missing.nc") & " " & control.ErrorMessage
WScript.Echo control.NcFile(folder & "\plain.txt") & " " & control.ErrorMessage
WScript.Echo control.NumDrawAbleItems & " items"
WScript.Echo control.NcFile(folder & "\tiny.nc") & " " & control.NumDrawAbleItems & " items"
WScript.Echo "the text stays: " & control.ErrorMessage
