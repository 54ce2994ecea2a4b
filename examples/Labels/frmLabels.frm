VERSION 5.00
Begin VB.Form frmLabels 
   BorderStyle     =   1  'Fixed Single
   Caption         =   "Shelf labels"
   ClientHeight    =   5415
   ClientLeft      =   45
   ClientTop       =   615
   ClientWidth     =   7815
   HelpContextID   =   600
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   ScaleHeight     =   5415
   ScaleWidth      =   7815
   StartUpPosition =   2  'CenterScreen
   Begin VB.PictureBox picPreview 
      AutoRedraw      =   -1  'True
      BackColor       =   &H80000005&
      BeginProperty Font 
         Name            =   "Courier New"
         Size            =   8.25
         Charset         =   0
         Weight          =   400
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   4815
      Left            =   3840
      ScaleHeight     =   4755
      ScaleWidth      =   3795
      TabIndex        =   7
      Top             =   120
      Width           =   3855
   End
   Begin VB.CommandButton cmdAdd 
      Caption         =   "&Add"
      Default         =   -1  'True
      Height          =   375
      Left            =   2520
      TabIndex        =   4
      Top             =   1200
      Width           =   1095
   End
   Begin VB.TextBox txtLabel 
      Height          =   315
      HelpContextID   =   611
      Index           =   1
      Left            =   960
      MaxLength       =   50
      TabIndex        =   3
      Top             =   720
      Width           =   2655
   End
   Begin VB.TextBox txtLabel 
      Height          =   315
      HelpContextID   =   610
      Index           =   0
      Left            =   960
      MaxLength       =   9
      TabIndex        =   1
      Top             =   240
      Width           =   1335
   End
   Begin VB.Frame fraGrid 
      Caption         =   "Sheet"
      Height          =   1335
      Left            =   120
      TabIndex        =   5
      Top             =   1800
      Width           =   3495
      Begin VB.OptionButton optGrid 
         Caption         =   "&2 × 4, big"
         Height          =   255
         Index           =   1
         Left            =   240
         TabIndex        =   8
         Top             =   840
         Width           =   3015
      End
      Begin VB.OptionButton optGrid 
         Caption         =   "&3 × 8"
         Height          =   255
         Index           =   0
         Left            =   240
         TabIndex        =   6
         Top             =   360
         Value           =   -1  'True
         Width           =   3015
      End
   End
   Begin VB.Image imgLogo 
      Height          =   480
      Left            =   120
      Top             =   4440
      Width           =   480
   End
   Begin VB.Label lblCount 
      Caption         =   "No labels"
      Height          =   255
      Left            =   120
      TabIndex        =   9
      Top             =   5040
      Width           =   3495
   End
   Begin VB.Label lblLabel 
      Caption         =   "&Text:"
      Height          =   255
      Index           =   1
      Left            =   120
      TabIndex        =   2
      Top             =   765
      Width           =   735
   End
   Begin VB.Label lblLabel 
      Caption         =   "&Code:"
      Height          =   255
      Index           =   0
      Left            =   120
      TabIndex        =   0
      Top             =   285
      Width           =   735
   End
   Begin VB.Menu mnuSheet 
      Caption         =   "&Sheet"
      Begin VB.Menu mnuSheetClear 
         Caption         =   "&Clear"
      End
      Begin VB.Menu mnuSheetPrint 
         Caption         =   "&Print..."
         Shortcut        =   ^P
      End
      Begin VB.Menu mnuSheetBar0 
         Caption         =   "-"
      End
      Begin VB.Menu mnuSheetExit 
         Caption         =   "E&xit"
      End
   End
End
Attribute VB_Name = "frmLabels"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private WithEvents mobjSheet As CLabelSheet
Attribute mobjSheet.VB_VarHelpID = -1

Private Sub Form_Load()
 Set mobjSheet = New CLabelSheet
  ShowSheet
End Sub

Private Sub ShowSheet()
   picPreview.Cls
   mobjSheet.Draw picPreview
   Select Case mobjSheet.Count
      Case 0: lblCount.Caption = "No labels"
      Case 1: lblCount.Caption = "One label"
      Case Else
         lblCount.Caption = mobjSheet.Count & " labels, " & _
            (mobjSheet.Count + mobjSheet.PerPage - 1) \ mobjSheet.PerPage & " page(s)"
   End Select
   mnuSheetPrint.Enabled = mobjSheet.Count > 0
End Sub

Private Sub cmdAdd_Click()
Dim strCode As String


strCode = CleanCode(txtLabel(0).Text)
            If Not IsPartCode(strCode) Then strCode = strCode & CheckDigit(strCode)
            If mobjSheet.AddLabel(strCode, txtLabel(1).Text) Then
        txtLabel(0).Text = "": txtLabel(1).Text = ""
    ShowSheet
        Else
MsgBox "'" & strCode & "' isn't a part code.", vbExclamation, Me.Caption
      End If
    txtLabel(0).SetFocus
    End Sub

  Private Sub optGrid_Click(Index As Integer)
             If mobjSheet Is Nothing Then Exit Sub   ' Click comes while the form loads
                        If Index = 0 Then mobjSheet.SetGrid 3, 8 Else mobjSheet.SetGrid 2, 4
             ShowSheet
  End Sub


  Private Sub mnuSheetClear_Click()
               mobjSheet.Clear
               ShowSheet
End Sub

Private Sub mnuSheetPrint_Click()
   On Error GoTo NoPrinter
   Printer.FontName = "Courier New": Printer.FontSize = 8
                        mobjSheet.Draw Printer
   Printer.EndDoc
Exit Sub

NoPrinter:
   MsgBox "The labels can't be printed: " & Err.Description, vbCritical, Me.Caption
                Printer.KillDoc
 End Sub

    Private Sub mnuSheetExit_Click()
    Unload Me
  End Sub

Private Sub mobjSheet_PageDone(ByVal PageNo As Integer, Cancel As Boolean)
lblCount.Caption = "Page " & PageNo & "..."
            lblCount.Refresh
    End Sub
