' Opens a data set, lists what can be drawn in it, and draws its temperature along a path.
If WScript.Arguments.Count < 1 Then
  WScript.Echo "usage: cscript //nologo section.vbs FILE"
  WScript.Quit 2
End If

Set section = CreateObject("Kelvane.KelvaneCtl")
If section.NcFile(WScript.Arguments(0)) <> 1 Then WScript.Echo section.ErrorMessage : WScript.Quit 1
For i = 1 To section.NumDrawAbleItems : WScript.Echo i & " " & section.ItemName(i) : Next
section.NewSection
section.AddSection 285.25, 32    ' longitude, latitude: the path's corners
section.AddSection 292.75, 35.1
If section.EndSection <> 1 Then WScript.Echo section.ErrorMessage : WScript.Quit 1
If section.SetVarByName("temp") <> 1 Then WScript.Echo section.ErrorMessage : WScript.Quit 1
section.Draw
WScript.Echo "drawn"
