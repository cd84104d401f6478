' Opens a data set, lists what can be drawn in it, and draws its first variable along a path.
'   cscript //nologo section.vbs FILE
Set control = CreateObject("Kelvane.KelvaneCtl")
If control.NcFile(WScript.Arguments(0)) <> 1 Then Fail
For i = 1 To control.NumDrawAbleItems
  WScript.Echo i & " " & control.ItemName(i)
Next
control.NewSection
control.AddSection 285.25, 32     ' longitude, latitude: the path's corners
control.AddSection 295.5, 36.5
If control.EndSection <> 1 Then Fail
control.Draw
WScript.Echo "drawn"

Sub Fail
  WScript.Echo control.ErrorMessage
  WScript.Quit 1
End Sub
