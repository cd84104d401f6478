' Every member by name, in dispatch order: value and type of each result.
Option Explicit
Dim control, folder, i
folder = WScript.Arguments(0)
Set control = CreateObject("Kelvane.KelvaneCtl")

Sub Say(what, value)
  If IsEmpty(value) Then
    WScript.Echo what & ": Empty"
  Else
    WScript.Echo what & ": " & TypeName(value) & " [" & value & "]"
  End If
End Sub

WScript.Echo "object: " & TypeName(control)
Say "NumDrawAbleItems at first", control.NumDrawAbleItems
Say "ItemName(1) at first", control.ItemName(1)
Say "ErrorMessage at first", control.ErrorMessage
Say "DrawProfile at first", control.DrawProfile
Say "DrawVerticalSection at first", control.DrawVerticalSection
Say "NcFile", control.NcFile(folder & "\tiny.nc")
Say "NumDrawAbleItems", control.NumDrawAbleItems
For i = 0 To 3
  Say "ItemName(" & i & ")", control.ItemName(i)
Next
control.NewSection
control.AddSection 354.5, -1
control.AddSection 354.5, 0.4
Say "EndSection", control.EndSection
Say "SetVarByName", control.SetVarByName("TEMP")
Say "SetVarByName of none", control.SetVarByName("nosuch")
Say "ErrorMessage", control.ErrorMessage
Say "SetVarByOrder(0)", control.SetVarByOrder(0)
Say "SetVarByOrder(3)", control.SetVarByOrder(3)
Say "ErrorMessage", control.ErrorMessage
Say "SetVarByOrder(2)", control.SetVarByOrder(2)
Say "DrawVerticalSection", control.DrawVerticalSection
control.DrawVerticalSection = False
Say "DrawProfile", control.DrawProfile
control.DrawProfile = False
Say "DrawVerticalSection", control.DrawVerticalSection
control.DrawProfile = True
Say "DrawVerticalSection", control.DrawVerticalSection
control.DrawVerticalSection = True
Say "DrawProfile", control.DrawProfile
Say "Draw", control.Draw
control.SetCurrentTime 1
Say "AdvanceTime(1)", control.AdvanceTime(1)
Say "AdvanceTime(1)", control.AdvanceTime(1)
Say "ReDraw", control.ReDraw
Say "UseColorKey", control.UseColorKey
control.NewColorKey
control.UseColorKey = True
Say "UseColorKey of an empty key", control.UseColorKey
control.AddColorKey 0, 1, 255
control.UseColorKey = True
Say "UseColorKey", control.UseColorKey
control.UseColorKey = False
Say "UseColorKey", control.UseColorKey
Say "ErrorMessage", control.ErrorMessage
Say "KewFile of no file", control.KewFile(folder & "\none.kew")
Say "UseColorKey", control.UseColorKey
control.InitColorKey
Say "UseColorKey", control.UseColorKey
Say "KewFile", control.KewFile(folder & "\tiny.KEW")
control.DrawProfile = True
Say "Draw", control.Draw
Say "ReDraw", control.ReDraw
Say "ErrorMessage", control.ErrorMessage
control.ShowOptions
WScript.Echo "ShowOptions came back"
