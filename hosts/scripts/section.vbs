' Opens a data set, lists what can be drawn in it, and draws its temperature along a path,
' month after month. The control needs no form for this; on one, every step would be seen.
'   cscript //nologo section.vbs FILE
' with the cscript of the control's bitness: %windir%\SysWOW64\cscript.exe for the 32-bit control,
' %windir%\System32\cscript.exe for the 64-bit one.
Option Explicit
Dim section, i, n, Navy, SteelBlue, Khaki, Orange, Firebrick

Navy = RGB(0, 0, 128)
SteelBlue = RGB(70, 130, 180)
Khaki = RGB(240, 230, 140)
Orange = RGB(255, 165, 0)
Firebrick = RGB(178, 34, 34)

' NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not.
Sub Must(result)
  If result = 1 Then Exit Sub
  WScript.Echo section.ErrorMessage
  WScript.Quit 1
End Sub

If WScript.Arguments.Count <> 1 Then
  WScript.Echo "usage: cscript //nologo section.vbs FILE"
  WScript.Quit 2
End If
Set section = CreateObject("Kelvane.KelvaneCtl")

Must section.NcFile(WScript.Arguments(0))
For i = 1 To section.NumDrawAbleItems
  WScript.Echo i & " " & section.ItemName(i)
Next

section.NewSection
section.AddSection 285.25, 32      ' longitude, latitude: the path's corners
section.AddSection 292.75, 35.1
Must section.EndSection
Must section.SetVarByName("temp")

section.NewColorKey                ' degrees Celsius: from, to, colour
section.AddColorKey 0, 8, Navy
section.AddColorKey 8, 12, SteelBlue
section.AddColorKey 12, 16, Khaki
section.AddColorKey 16, 20, Orange
section.AddColorKey 20, 30, Firebrick
section.UseColorKey = True         ' False for the built-in ramp

section.Draw                       ' the first month
n = 1
Do
  WScript.Echo "time step " & n
  n = section.AdvanceTime(1)       ' after the last month comes the first again
Loop Until n = 1
