VERSION 5.00
Object = "{3033FD37-B089-4B29-9939-F65BFABD91D3}#1.0#0"; "KelvaneCtl.ocx"
Begin VB.Form SectionForm
   Caption         =   "Section"
   ClientHeight    =   7200
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   9600
   LinkTopic       =   "SectionForm"
   ScaleHeight     =   7200
   ScaleWidth      =   9600
   StartUpPosition =   3  'Windows Default
   Begin VB.Timer clock
      Enabled         =   0   'False
      Interval        =   500
      Left            =   120
      Top             =   120
   End
   Begin Kelvane.KelvaneCtl section
      Height          =   7200
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   9600
      _ExtentX        =   16933
      _ExtentY        =   12700
   End
   Begin VB.Menu mnuFile
      Caption         =   "&File"
      Begin VB.Menu mnuOpen
         Caption         =   "&Open..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuSave
         Caption         =   "&Save Picture..."
         Shortcut        =   ^S
      End
      Begin VB.Menu mnuExit
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuView
      Caption         =   "&View"
      Begin VB.Menu mnuNext
         Caption         =   "&Next Month"
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuPlay
         Caption         =   "&Play the Year"
         Shortcut        =   ^P
      End
      Begin VB.Menu mnuOptions
         Caption         =   "&Options..."
      End
   End
End
Attribute VB_Name = "SectionForm"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
' A form with the control on it: opens a data set, draws its temperature along a path, steps and
' plays through its months, and saves the picture. The data set can be named on the command line.
' VB6 programs are 32-bit: register the 32-bit control before the project is opened.
Option Explicit

Private Type RECT
  Left As Long
  Top As Long
  Right As Long
  Bottom As Long
End Type
Private Declare Function CreateEnhMetaFileW Lib "gdi32" (ByVal hdc As Long, _
  ByVal fileName As Long, ByVal frame As Long, ByVal description As Long) As Long
Private Declare Function CloseEnhMetaFile Lib "gdi32" (ByVal hdc As Long) As Long
Private Declare Function DeleteEnhMetaFile Lib "gdi32" (ByVal picture As Long) As Long
Private Declare Function OleDraw Lib "ole32" (ByVal drawn As IUnknown, _
  ByVal aspect As Long, ByVal hdc As Long, bounds As RECT) As Long

Private Sub Form_Load()
  Dim file As String
  file = Replace(Command$, """", "")
  Ready False
  If file <> "" Then OpenFile file
End Sub

' The control draws itself anew at each size it is given.
Private Sub Form_Resize()
  If WindowState = vbMinimized Then Exit Sub
  section.Move 0, 0, ScaleWidth, ScaleHeight
End Sub

Private Sub OpenFile(file As String)
  Dim Navy As Long, SteelBlue As Long, Khaki As Long, Orange As Long, Firebrick As Long
  Navy = RGB(0, 0, 128)
  SteelBlue = RGB(70, 130, 180)
  Khaki = RGB(240, 230, 140)
  Orange = RGB(255, 165, 0)
  Firebrick = RGB(178, 34, 34)

  clock.Enabled = False
  Ready False
  If Not Must(section.NcFile(file)) Then Exit Sub
  section.NewSection
  section.AddSection 285.25, 32      ' longitude, latitude: the path's corners
  section.AddSection 292.75, 35.1
  If Not Must(section.EndSection) Then Exit Sub
  If Not Must(section.SetVarByName("temp")) Then Exit Sub

  section.NewColorKey                ' degrees Celsius: from, to, colour
  section.AddColorKey 0, 8, Navy
  section.AddColorKey 8, 12, SteelBlue
  section.AddColorKey 12, 16, Khaki
  section.AddColorKey 16, 20, Orange
  section.AddColorKey 20, 30, Firebrick
  section.UseColorKey = True         ' False for the built-in ramp

  section.Draw                       ' the first month
  Caption = "Section: " & file
  Ready True
End Sub

' NcFile, EndSection and SetVarByName give 1, or -1 when ErrorMessage tells why not.
Private Function Must(result As Variant) As Boolean
  Must = (result = 1)
  If Not Must Then MsgBox section.ErrorMessage, vbExclamation, "Section"
End Function

Private Sub Ready(yes As Boolean)
  mnuSave.Enabled = yes
  mnuNext.Enabled = yes
  mnuPlay.Enabled = yes
  mnuOptions.Enabled = yes
End Sub

' Goes to the next month; after the last comes the first again.
Private Function NextMonth() As Long
  NextMonth = section.AdvanceTime(1)
  Caption = "Section: time step " & NextMonth
End Function

Private Sub clock_Timer()
  If NextMonth = 1 Then clock.Enabled = False
End Sub

Private Sub mnuOpen_Click()
  Dim file As String
  file = InputBox("The full path of a netCDF file, or an OPeNDAP address:", "Section")
  If file <> "" Then OpenFile file
End Sub

Private Sub mnuSave_Click()
  Dim file As String
  file = InputBox("Save the picture as an enhanced metafile:", "Section", "section.emf")
  If file <> "" Then SaveMetafile file
End Sub

Private Sub mnuExit_Click()
  Unload Me
End Sub

Private Sub mnuNext_Click()
  NextMonth
End Sub

Private Sub mnuPlay_Click()
  clock.Enabled = Not clock.Enabled
End Sub

Private Sub mnuOptions_Click()
  clock.Enabled = False
  section.ShowOptions
End Sub

Private Sub SaveMetafile(file As String)
  Const DVASPECT_CONTENT = 1
  Dim hdc As Long, bounds As RECT, failed As Long
  bounds.Right = ScaleX(ScaleWidth, ScaleMode, vbPixels)
  bounds.Bottom = ScaleY(ScaleHeight, ScaleMode, vbPixels)
  hdc = CreateEnhMetaFileW(0, StrPtr(file), 0, 0)
  If hdc = 0 Then
    MsgBox "The file cannot be made: " & file, vbExclamation, "Section"
    Exit Sub
  End If
  failed = OleDraw(section.object, DVASPECT_CONTENT, hdc, bounds)
  DeleteEnhMetaFile CloseEnhMetaFile(hdc)
  If failed <> 0 Then MsgBox "Nothing was drawn: " & Hex$(failed), vbExclamation, "Section"
End Sub
