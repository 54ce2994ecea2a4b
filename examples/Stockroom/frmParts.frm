VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmParts 
   Caption         =   "Parts"
   ClientHeight    =   5055
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   8895
   HelpContextID   =   200
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   5055
   ScaleWidth      =   8895
   Begin VB.Timer tmrRefresh 
      Enabled         =   0   'False
      Interval        =   400
      Left            =   8280
      Top             =   4440
   End
   Begin MSComctlLib.ListView lvwParts 
      Height          =   3855
      Left            =   120
      TabIndex        =   5
      Top             =   1080
      Width           =   8655
      _ExtentX        =   15266
      _ExtentY        =   6800
      View            =   3
      LabelEdit       =   1
      Sorted          =   -1  'True
      LabelWrap       =   -1  'True
      HideSelection   =   0   'False
      FullRowSelect   =   -1  'True
      GridLines       =   -1  'True
      _Version        =   393217
      ForeColor       =   -2147483640
      BackColor       =   -2147483643
      BorderStyle     =   1
      Appearance      =   1
      NumItems        =   6
      BeginProperty ColumnHeader(1) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Key             =   "Code"
         Text            =   "Code"
         Object.Width           =   2117
      EndProperty
      BeginProperty ColumnHeader(2) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   1
         Text            =   "Part"
         Object.Width           =   4939
      EndProperty
      BeginProperty ColumnHeader(3) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         SubItemIndex    =   2
         Text            =   "Supplier"
         Object.Width           =   2646
      EndProperty
      BeginProperty ColumnHeader(4) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Alignment       =   1
         SubItemIndex    =   3
         Text            =   "Stock"
         Object.Width           =   1411
      EndProperty
      BeginProperty ColumnHeader(5) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Alignment       =   1
         SubItemIndex    =   4
         Text            =   "Minimum"
         Object.Width           =   1411
      EndProperty
      BeginProperty ColumnHeader(6) {BDD1F052-858B-11D1-B16A-00C0F0283628} 
         Alignment       =   1
         SubItemIndex    =   5
         Text            =   "Price €"
         Object.Width           =   1764
      EndProperty
   End
   Begin VB.Frame fraFilter 
      Caption         =   "Show"
      Height          =   855
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   8655
      Begin VB.CheckBox chkShort 
         Caption         =   "&Below minimum only"
         Height          =   255
         Left            =   6480
         TabIndex        =   4
         Top             =   360
         Width           =   2055
      End
      Begin VB.TextBox txtFind 
         Height          =   315
         HelpContextID   =   210
         Left            =   4440
         TabIndex        =   3
         Top             =   345
         Width           =   1815
      End
      Begin VB.ComboBox cboSupplier 
         Height          =   315
         Left            =   1080
         Style           =   2  'Dropdown List
         TabIndex        =   1
         Top             =   345
         Width           =   2175
      End
      Begin VB.Label lblFilter 
         Caption         =   "&Find:"
         Height          =   195
         Index           =   1
         Left            =   3600
         TabIndex        =   2
         Top             =   390
         Width           =   735
      End
      Begin VB.Label lblFilter 
         Caption         =   "Supplier:"
         Height          =   195
         Index           =   0
         Left            =   120
         TabIndex        =   6
         Top             =   390
         Width           =   855
      End
   End
   Begin VB.Menu mnuPart 
      Caption         =   "&Part"
      Visible         =   0   'False
      Begin VB.Menu mnuPartEdit 
         Caption         =   "&Edit..."
      End
      Begin VB.Menu mnuPartBook 
         Caption         =   "&Book"
         Begin VB.Menu mnuPartBookItem 
            Caption         =   "&In..."
            Index           =   0
         End
         Begin VB.Menu mnuPartBookItem 
            Caption         =   "&Out..."
            Index           =   1
         End
         Begin VB.Menu mnuPartBookItem 
            Caption         =   "-"
            Index           =   2
         End
         Begin VB.Menu mnuPartBookItem 
            Caption         =   "&Counted..."
            Index           =   3
         End
      End
      Begin VB.Menu mnuPartBar0 
         Caption         =   "-"
      End
      Begin VB.Menu mnuPartDiscontinue 
         Caption         =   "&Discontinued"
      End
   End
End
Attribute VB_Name = "frmParts"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private WithEvents mdb As CDatabase
Attribute mdb.VB_VarHelpID = -1
Private mcolParts As CParts
Private mblnLoading As Boolean

Private Sub Form_Load()
        Set mcolParts = New CParts
    Set mdb = gDb
            mblnLoading = True
               If mdb.IsOpen Then FillSuppliers cboSupplier
    cboSupplier.AddItem "(all)", 0
cboSupplier.ListIndex = 0
      mblnLoading = False
    RefreshList
 End Sub

Private Sub Form_Resize()
   If Me.WindowState = vbMinimized Then Exit Sub
   On Error Resume Next    ' sizes below zero while the window is made tiny
   fraFilter.Width = Me.ScaleWidth - 240
   lvwParts.Move 120, lvwParts.Top, Me.ScaleWidth - 240, Me.ScaleHeight - lvwParts.Top - 120
End Sub

    Private Sub Form_Unload(Cancel As Integer)
tmrRefresh.Enabled = False
Set mdb = Nothing
Set mcolParts = Nothing
  End Sub

    Public Sub RefreshList()
Dim objPart As CPart
Dim itm As MSComctlLib.ListItem
Dim strSupplier As String, strKey As String

If mblnLoading Or Not mdb.IsOpen Then Exit Sub
If Not lvwParts.SelectedItem Is Nothing Then strKey = lvwParts.SelectedItem.Text
If cboSupplier.ListIndex > 0 Then strSupplier = cboSupplier.Text
mcolParts.LoadAll mdb, strSupplier, Trim$(txtFind.Text)

lvwParts.ListItems.Clear
For Each objPart In mcolParts
    If chkShort.Value = vbUnchecked Or objPart.Missing > 0 Then
        Set itm = lvwParts.ListItems.Add(, "P" & objPart.ID, objPart.Code)
        With itm
            .SubItems(pcText) = objPart.Text
            .SubItems(pcSupplier) = objPart.Supplier
            .SubItems(pcStock) = objPart.Stock
            .SubItems(pcMinimum) = objPart.Minimum
            .SubItems(pcPrice) = Format$(objPart.Price, FMT_MONEY)
            If objPart.Discontinued Then
                .ForeColor = vbGrayText
            ElseIf objPart.Missing > 0 Then
                .Bold = True
                .ForeColor = vbRed
            End If
            .Selected = (.Text = strKey)
        End With
    End If
Next
FitColumns lvwParts
Me.Caption = "Parts (" & lvwParts.ListItems.Count & ")"
End Sub

Private Function SelectedPart() As CPart
If lvwParts.SelectedItem Is Nothing Then
          Beep
                   Exit Function
        End If
      Set SelectedPart = mcolParts.Find(lvwParts.SelectedItem.Text)
    End Function

  Private Sub mdb_Changed(ByVal TableName As String)
    If TableName = "Part" Then tmrRefresh.Enabled = True    ' many writes, one refresh
 End Sub

Private Sub tmrRefresh_Timer()
tmrRefresh.Enabled = False: RefreshList
End Sub

Private Sub cboSupplier_Click()
             RefreshList
End Sub

Private Sub chkShort_Click()
RefreshList
End Sub

    Private Sub txtFind_KeyPress(KeyAscii As Integer)
        If KeyAscii = vbKeyReturn Then KeyAscii = 0: RefreshList
    End Sub

Private Sub lvwParts_ColumnClick(ByVal ColumnHeader As MSComctlLib.ColumnHeader)
 With lvwParts
            If .SortKey = ColumnHeader.Index - 1 Then
            .SortOrder = IIf(.SortOrder = lvwAscending, lvwDescending, lvwAscending)
    Else
        .SortKey = ColumnHeader.Index - 1: .SortOrder = lvwAscending
     End If
                .Sorted = True
End With
End Sub

Private Sub lvwParts_DblClick()
mnuPartEdit_Click
End Sub

    Private Sub lvwParts_MouseUp(Button As Integer, Shift As Integer, x As Single, y As Single)
If Button = vbRightButton And Not lvwParts.SelectedItem Is Nothing Then _
    PopupMenu mnuPart, , , , mnuPartEdit
End Sub

Private Sub mnuPart_Click()
    Dim objPart As CPart

    If lvwParts.SelectedItem Is Nothing Then
        mnuPartDiscontinue.Checked = False
Else
     Set objPart = SelectedPart()
                   If Not objPart Is Nothing Then mnuPartDiscontinue.Checked = objPart.Discontinued
End If
End Sub

Private Sub mnuPartEdit_Click()
   Dim objPart As CPart

   Set objPart = SelectedPart()
                        If Not objPart Is Nothing Then frmPart.EditPart objPart
End Sub

Private Sub mnuPartDiscontinue_Click()
  Dim objPart As CPart

  Set objPart = SelectedPart()
                        If objPart Is Nothing Then Exit Sub
                objPart.Discontinued = Not objPart.Discontinued
  objPart.Save mdb
  End Sub

Private Sub mnuPartBookItem_Click(Index As Integer)
Dim objPart As CPart
Dim strInput As String, lngPieces As Long

Set objPart = SelectedPart()
If objPart Is Nothing Then Exit Sub
On Error GoTo NotBooked
AskAgain:
strInput = InputBox("Pieces of " & objPart.Code & " (" & objPart.Text & "):", _
Replace(mnuPartBookItem(Index).Caption, "&", ""), strInput)
If Len(strInput) = 0 Then Exit Sub
If Not IsNumeric(strInput) Then
MsgBox "'" & strInput & "' is no number.", vbExclamation, APP_TITLE
GoTo AskAgain
End If
lngPieces = CLng(strInput)

Select Case Index
Case 0
objPart.Stock = objPart.Stock + lngPieces
Case 1
If lngPieces > objPart.Stock Then
If MsgBox("There are only " & objPart.Stock & ". Take them all?", _
vbYesNo Or vbQuestion, APP_TITLE) = vbNo Then Exit Sub
lngPieces = objPart.Stock
End If
objPart.Stock = objPart.Stock - lngPieces
Case 3
objPart.Stock = lngPieces
End Select
objPart.Save mdb
Exit Sub

NotBooked:
MsgBox Err.Description, vbExclamation, APP_TITLE
Resume AskAgain
 End Sub
