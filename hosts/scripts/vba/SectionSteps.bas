Attribute VB_Name = "SectionSteps"
' Excel, Word or any other Office program: opens a data set, shows the form SectionForm with the
' control on it, draws the temperature along a path month after month, and saves the last picture.
' Insert the form first, as SectionForm.txt tells; then File > Import File, this file; then run
' StepThroughTime. 32-bit Office needs the 32-bit control, 64-bit Office the 64-bit one.
Option Explicit

Private Type RECT
  Left As Long
  Top As Long
  Right As Long
  Bottom As Long
End Type

#If VBA7 Then
Private Declare PtrSafe Function CreateEnhMetaFileW Lib "gdi32" (ByVal hdc As LongPtr, _
  ByVal fileName As LongPtr, ByVal frame As LongPtr, ByVal description As LongPtr) As LongPtr
Private Declare PtrSafe Function CloseEnhMetaFile Lib "gdi32" (ByVal hdc As LongPtr) As LongPtr
Private Declare PtrSafe Function DeleteEnhMetaFile Lib "gdi32" (ByVal picture As LongPtr) As Long
Private Declare PtrSafe Function OleDraw Lib "ole32" (ByVal drawn As IUnknown, _
  ByVal aspect As Long, ByVal hdc As LongPtr, bounds As RECT) As Long
#Else
Private Declare Function CreateEnhMetaFileW Lib "gdi32" (ByVal hdc As Long, _
  ByVal fileName As Long, ByVal frame As Long, ByVal description As Long) As Long
Private Declare Function CloseEnhMetaFile Lib "gdi32" (ByVal hdc As Long) As Long
Private Declare Function DeleteEnhMetaFile Lib "gdi32" (ByVal picture As Long) As Long
Private Declare Function OleDraw Lib "ole32" (ByVal drawn As IUnknown, _
  ByVal aspect As Long, ByVal hdc As Long, bounds As RECT) As Long
#End If

Public Sub StepThroughTime()
  Dim section As Object, file As String, n As Long, started As Single
  Dim Navy As Long, SteelBlue As Long, Khaki As Long, Orange As Long, Firebrick As Long
  Navy = RGB(0, 0, 128)
  SteelBlue = RGB(70, 130, 180)
  Khaki = RGB(240, 230, 140)
  Orange = RGB(255, 165, 0)
  Firebrick = RGB(178, 34, 34)

  file = InputBox("The full path of a netCDF file, or an OPeNDAP address:", "Section")
  If file = "" Then Exit Sub
  SectionForm.Show vbModeless
  Set section = SectionForm.Section
  If Not Must(section, section.NcFile(file)) Then Exit Sub

  section.NewSection
  section.AddSection 285.25, 32      ' longitude, latitude: the path's corners
  section.AddSection 292.75, 35.1
  If Not Must(section, section.EndSection) Then Exit Sub
  If Not Must(section, section.SetVarByName("temp")) Then Exit Sub

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
    SectionForm.Caption = "Time step " & n
    started = Timer
    Do While Timer >= started And Timer < started + 0.5
      DoEvents
      If Not SectionForm.Visible Then Exit Sub
    Loop
    n = section.AdvanceTime(1)       ' after the last month comes the first again
  Loop Until n = 1
  SavePicture section, Environ$("TEMP") & "\section.emf", 640, 480
  MsgBox "The picture is " & Environ$("TEMP") & "\section.emf", vbInformation, "Section"
End Sub

' NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not.
Private Function Must(section As Object, result As Variant) As Boolean
  Must = (result = 1)
  If Not Must Then MsgBox section.ErrorMessage, vbExclamation, "Section"
End Function

' Saves the picture as an enhanced metafile, which Office inserts like any other picture.
Private Sub SavePicture(section As Object, file As String, width As Long, height As Long)
#If VBA7 Then
  Dim hdc As LongPtr
#Else
  Dim hdc As Long
#End If
  Const DVASPECT_CONTENT = 1
  Dim bounds As RECT, failed As Long
  bounds.Right = width
  bounds.Bottom = height
  hdc = CreateEnhMetaFileW(0, StrPtr(file), 0, 0)
  If hdc = 0 Then Err.Raise 75
  failed = OleDraw(section, DVASPECT_CONTENT, hdc, bounds)
  DeleteEnhMetaFile CloseEnhMetaFile(hdc)
  If failed <> 0 Then Err.Raise failed
End Sub
