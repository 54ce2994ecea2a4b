VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "COMDLG32.OCX"
Begin VB.MDIForm frmMain 
   BackColor       =   &H8000000C&
   Caption         =   "Stockroom"
   ClientHeight    =   7215
   ClientLeft      =   165
   ClientTop       =   855
   ClientWidth     =   10680
   HelpContextID   =   100
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   3  'Windows Default
   Begin VB.Timer tmrClock 
      Interval        =   30000
      Left            =   9960
      Top             =   1080
   End
   Begin MSComDlg.CommonDialog dlgFile 
      Left            =   9360
      Top             =   1080
      _ExtentX        =   847
      _ExtentY        =   847
      _Version        =   393216
      CancelError     =   -1  'True
      DefaultExt      =   "txt"
      Flags           =   4
   End
   Begin MSComctlLib.Toolbar tbrMain 
      Align           =   1  'Align Top
      Height          =   570
      Left            =   0
      TabIndex        =   1
      Top             =   0
      Width           =   10680
      _ExtentX        =   18838
      _ExtentY        =   1005
      ButtonWidth     =   1508
      ButtonHeight    =   953
      Appearance      =   1
      Style           =   1
      _Version        =   393216
      BeginProperty Buttons {66833FE8-8583-11D1-B16A-00C0F0283628} 
         NumButtons      =   5
         BeginProperty Button1 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Caption         =   "New part"
            Key             =   "NewPart"
            Object.ToolTipText     =   "Add a part to the store"
         EndProperty
         BeginProperty Button2 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Caption         =   "New order"
            Key             =   "NewOrder"
         EndProperty
         BeginProperty Button3 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Style           =   3
         EndProperty
         BeginProperty Button4 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Caption         =   "Parts"
            Key             =   "Parts"
         EndProperty
         BeginProperty Button5 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Caption         =   "Import"
            Key             =   "Import"
            Object.ToolTipText     =   "Read a stock count"
         EndProperty
      EndProperty
   End
   Begin MSComctlLib.StatusBar sbStatus 
      Align           =   2  'Align Bottom
      Height          =   315
      Left            =   0
      TabIndex        =   0
      Top             =   6900
      Width           =   10680
      _ExtentX        =   18838
      _ExtentY        =   556
      _Version        =   393216
      BeginProperty Panels {8E3867A5-8586-11D1-B16A-00C0F0283628} 
         NumPanels       =   3
         BeginProperty Panel1 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            AutoSize        =   1
            Object.Width           =   13150
            Text            =   "Ready"
            TextSave        =   "Ready"
         EndProperty
         BeginProperty Panel2 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
         EndProperty
         BeginProperty Panel3 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Alignment       =   1
         EndProperty
      EndProperty
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileNew 
         Caption         =   "&New"
         Begin VB.Menu mnuFileNewPart 
            Caption         =   "&Part..."
            HelpContextID   =   110
            Shortcut        =   ^N
         End
         Begin VB.Menu mnuFileNewOrder 
            Caption         =   "&Order"
            HelpContextID   =   111
            Shortcut        =   ^O
         End
      End
      Begin VB.Menu mnuFileBar0 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileImport 
         Caption         =   "&Import count..."
         HelpContextID   =   112
      End
      Begin VB.Menu mnuFileList 
         Caption         =   "Stock &list..."
      End
      Begin VB.Menu mnuFileBar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "&1"
         Index           =   0
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "&2"
         Index           =   1
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "&3"
         Index           =   2
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileBar2 
         Caption         =   "-"
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuWindow 
      Caption         =   "&Window"
      WindowList      =   -1  'True
      Begin VB.Menu mnuWindowParts 
         Caption         =   "&Parts"
         Shortcut        =   {F5}
      End
      Begin VB.Menu mnuWindowBar0 
         Caption         =   "-"
      End
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "&Cascade"
         Index           =   0
      End
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "Tile &horizontally"
         Index           =   1
      End
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "Tile &vertically"
         Index           =   2
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuHelpAbout 
         Caption         =   "&About Stockroom..."
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Const RECENT_LAST = 2

Private mstrRecent(0 To RECENT_LAST) As String

Private Sub MDIForm_Load()
  Dim i As Integer

  Me.Caption = APP_TITLE
  If GetSetting(APP_TITLE, "Main", "Max", "0") = "1" Then
    Me.WindowState = vbMaximized
Else
    Me.Left = Val(GetSetting(APP_TITLE, "Main", "Left", "600"))
    Me.Top = Val(GetSetting(APP_TITLE, "Main", "Top", "600"))
    KeepOnScreen Me
                End If
  For i = 0 To RECENT_LAST
    mstrRecent(i) = GetSetting(APP_TITLE, "Recent", "File" & i, "")
  Next i
  ShowRecent
  sbStatus.Panels(2).Text = gstrUser
  tmrClock_Timer
End Sub


  Private Sub MDIForm_QueryUnload(Cancel As Integer, UnloadMode As Integer)
 Dim objForm As Object
  Dim intOpen As Integer

   If UnloadMode = vbAppWindows Then Exit Sub      ' Windows goes down: don't ask
    For Each objForm In Forms
     If TypeOf objForm Is frmOrder Then
      If objForm.IsDirty Then intOpen = intOpen + 1
        End If
        Next objForm
         If intOpen > 0 Then
          Cancel = (MsgBox(intOpen & " order(s) are not saved yet. Leave all the same?", _
            vbYesNo Or vbQuestion Or vbDefaultButton2, APP_TITLE) = vbNo)
            End If
    End Sub

Private Sub MDIForm_Unload(Cancel As Integer)
               Dim i As Integer

               SaveSetting APP_TITLE, "Main", "Max", IIf(Me.WindowState = vbMaximized, "1", "0")
    If Me.WindowState = vbNormal Then
                SaveSetting APP_TITLE, "Main", "Left", Me.Left
        SaveSetting APP_TITLE, "Main", "Top", Me.Top
               End If
For i = 0 To RECENT_LAST
    SaveSetting APP_TITLE, "Recent", "File" & i, mstrRecent(i)
      Next i
Set gDb = Nothing
End Sub

    Private Sub ShowRecent()
Dim i As Integer, blnAny As Boolean

For i = 0 To RECENT_LAST
    With mnuFileRecent(i)
        .Visible = Len(mstrRecent(i)) > 0
        If .Visible Then .Caption = "&" & (i + 1) & " " & mstrRecent(i): blnAny = True
    End With
Next i
mnuFileBar2.Visible = blnAny
  End Sub

Private Sub Remember(ByVal strFile As String)
 Dim i As Integer

  i = 0
    Do Until i = RECENT_LAST
    If StrComp(mstrRecent(i), strFile, vbTextCompare) = 0 Then Exit Do
      i = i + 1
      Loop
       For i = i To 1 Step -1
         mstrRecent(i) = mstrRecent(i - 1)
         Next i
          mstrRecent(0) = strFile
           ShowRecent
 End Sub

Private Sub Import(ByVal strFile As String)
            Dim lngCount As Long

      Screen.MousePointer = vbHourglass
 sbStatus.Panels(1).Text = "Reading " & strFile & "..."
    lngCount = ImportCount(strFile)
 Screen.MousePointer = vbDefault
            sbStatus.Panels(1).Text = lngCount & " part(s) counted"
            If lngCount > 0 Then Remember strFile
  End Sub

Private Sub mnuFileImport_Click()
   On Error GoTo Cancelled
   dlgFile.Filter = "Stock counts (*.txt;*.csv)|*.txt;*.csv|All files|*.*"
   dlgFile.ShowOpen
   Import dlgFile.FileName
   Exit Sub
Cancelled:
   If Err.Number <> cdlCancel Then MsgBox Err.Description, vbExclamation, APP_TITLE
End Sub

Private Sub mnuFileList_Click()
        Dim colParts As CParts

            On Error GoTo Cancelled
dlgFile.Filter = "Text files (*.txt)|*.txt"
    dlgFile.FileName = "stock " & Format$(Date, "yyyy-mm-dd") & ".txt"
        dlgFile.ShowSave
 Set colParts = New CParts
    colParts.LoadAll gDb
WriteStockList dlgFile.FileName, colParts
    If Not OpenDocument(Me.hWnd, dlgFile.FileName) Then Beep
    Exit Sub
Cancelled:
    If Err.Number <> cdlCancel Then MsgBox Err.Description, vbExclamation, APP_TITLE
    End Sub

Private Sub mnuFileNewPart_Click()
frmPart.EditPart New CPart
End Sub

  Private Sub mnuFileNewOrder_Click()
    Dim frm As frmOrder

    Set frm = New frmOrder      ' one window an order
      frm.Show
End Sub

  Private Sub mnuFileRecent_Click(Index As Integer)
             Import mstrRecent(Index)
End Sub

  Private Sub mnuFileExit_Click()
               Unload Me
 End Sub

Private Sub mnuWindowParts_Click()
frmParts.Show: frmParts.ZOrder
End Sub

  Private Sub mnuWindowArrange_Click(Index As Integer)
   Me.Arrange Index        ' 0, 1, 2 are vbCascade and the two tiles
  End Sub

Private Sub mnuHelpAbout_Click()
 MsgBox APP_TITLE & " " & App.Major & "." & App.Minor & "." & App.Revision & vbCrLf & vbCrLf & _
  "Parts, stock levels and purchase orders." & vbCrLf & "© 2001-2004 Lager + Büro", vbInformation, APP_TITLE
End Sub

Private Sub tbrMain_ButtonClick(ByVal Button As MSComctlLib.Button)
             Select Case Button.Key
                  Case "NewPart": mnuFileNewPart_Click
                  Case "NewOrder": mnuFileNewOrder_Click
                  Case "Parts": mnuWindowParts_Click
                  Case "Import"
                       mnuFileImport_Click
             End Select
    End Sub

Private Sub tmrClock_Timer()
 sbStatus.Panels(3).Text = Format$(Now, "Short Date") & "  " & Format$(Now, "hh:nn")
End Sub
