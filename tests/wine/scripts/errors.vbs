' Run-time errors and refused calls as VBScript sees them.
Option Explicit
Dim control, ignored
Set control = CreateObject("Kelvane.KelvaneCtl")

Sub Say(what)
  WScript.Echo what & ": " & Err.Number & " [" & Err.Description & "] [" & Err.Source & "]"
  Err.Clear
End Sub

On Error Resume Next
control.SetCurrentTime 2147483647
Say "SetCurrentTime"
ignored = control.AdvanceTime(1)
Say "AdvanceTime over the top"
ignored = control.AdvanceTime(-1)
Say "AdvanceTime back: " & ignored
control.AddSection 1
Say "AddSection(1)"
control.NewSection 1
Say "NewSection(1)"
ignored = control.ItemName(1, 2)
Say "ItemName(1, 2)"
control.AddSection "abc", 1
Say "AddSection(""abc"", 1)"
control.AddSection 1E300, 1
Say "AddSection(1E300, 1)"
ignored = control.ItemName(1E300)
Say "ItemName(1E300)"
control.NumDrawAbleItems = 3
Say "NumDrawAbleItems = 3"
control.NoSuchMember
Say "NoSuchMember"
control.AddSection "20.25", "-1.5"
Say "AddSection of texts"
WScript.Echo "ItemName of a text: [" & control.ItemName("1") & "]"
Say "ItemName of a text"
