' A colour key made, saved, edited outside, loaded and drawn with; files that give no key.
Option Explicit
Dim control, files, folder, own, text
folder = WScript.Arguments(0)
own = folder & "\tiny.KEW"
Set files = CreateObject("Scripting.FileSystemObject")
Set control = CreateObject("Kelvane.KelvaneCtl")

Function ReadText(name)
  Dim stream
  Set stream = files.OpenTextFile(name, 1)
  ReadText = stream.ReadAll
  stream.Close
End Function

Sub WriteText(name, content)
  Dim stream
  Set stream = files.CreateTextFile(name, True)
  stream.Write content
  stream.Close
End Sub

' What stands between the first <tag> and </tag> from a place on.
Function Inner(content, tag, place)
  Dim first
  first = InStr(place, content, "<" & tag & ">") + Len(tag) + 2
  Inner = Mid(content, first, InStr(first, content, "</" & tag & ">") - first)
End Function

Function CountOf(content, part)
  CountOf = (Len(content) - Len(Replace(content, part, ""))) / Len(part)
End Function

Sub TellKey(what)
  WScript.Echo what & ", in use: " & control.UseColorKey
End Sub

control.NcFile folder & "\tiny.nc"
control.NewSection
control.AddSection 350, -1
control.AddSection 360, 0.5
control.EndSection

WScript.Echo "file at first: " & files.FileExists(own)
control.InitColorKey
TellKey "InitColorKey made a key"
text = ReadText(own)
WScript.Echo CountOf(text, "<variable name=""temp"">") & " variable, " & CountOf(text, "<division>") & " divisions"
WScript.Echo "first: " & Inner(text, "low", 1) & " to " & Inner(text, "high", 1)
WScript.Echo "last: " & Inner(text, "low", InStrRev(text, "<division>")) & " to " & Inner(text, "high", InStrRev(text, "<division>"))
control.Draw

control.InitColorKey
TellKey "InitColorKey loaded the key"
WScript.Echo "the file is as it was: " & (ReadText(own) = text)

WriteText own, "<?xml version=""1.0""?><section><variable name=""salt""/><!-- mine --><variable name=""temp"">" & _
  "<division><low> 9</low><high>12.5</high><color>255</color></division>" & _
  "<division><low>12.5</low><high>1E+20</high><color>16711680</color></division></variable></section>"
control.NewColorKey
control.UseColorKey = True
TellKey "NewColorKey"
WScript.Echo "KewFile: " & control.KewFile(own)
control.UseColorKey = True
TellKey "KewFile"
control.Draw
WScript.Echo "text: [" & control.ErrorMessage & "]"

control.SetVarByName "salt"
WScript.Echo "KewFile of a variable without divisions: " & control.KewFile(own)
control.UseColorKey = True
TellKey "an empty key"
control.InitColorKey
TellKey "InitColorKey found it empty"

WriteText own, "<?xml version=""1.0""?><section><variable name=""temp""/></section>"
WScript.Echo "KewFile without the variable: " & control.KewFile(own)
control.UseColorKey = True
TellKey "no key"
control.InitColorKey
TellKey "InitColorKey without the variable"
WriteText own, "<section><variable name=""salt"">"
WScript.Echo "KewFile of broken XML: " & control.KewFile(own)
control.InitColorKey
TellKey "InitColorKey of broken XML"
WScript.Echo "it is still broken: " & ReadText(own)
WScript.Echo "KewFile of no file: " & control.KewFile(folder & "\none.kew")
On Error Resume Next
control.AddColorKey 30, 40, 255
WScript.Echo "AddColorKey after no key: " & (Err.Number And &HFFFF&) & " " & Err.Description
Err.Clear
control.AddColorKey 30, 40, 255
WScript.Echo "AddColorKey again: " & Err.Number
control.UseColorKey = True
TellKey "a key by hand"
control.Draw
WScript.Echo "text: [" & control.ErrorMessage & "]"
