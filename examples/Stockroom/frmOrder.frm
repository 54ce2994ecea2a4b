VERSION 5.00
Object = "{5E9E78A0-531B-11CF-91F6-C2863C385E30}#1.0#0"; "MSFLXGRD.OCX"
Begin VB.Form frmOrder 
   Caption         =   "Order"
   ClientHeight    =   5295
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7935
   HelpContextID   =   400
   KeyPreview      =   -1  'True
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   5295
   ScaleWidth      =   7935
   Begin VB.PictureBox picTop 
      Align           =   1  'Align Top
      BorderStyle     =   0  'None
      Height          =   1215
      Left            =   0
      ScaleHeight     =   1215
      ScaleWidth      =   7935
      TabIndex        =   0
      Top             =   0
      Width           =   7935
      Begin VB.Frame fraFill 
         Caption         =   "Propose"
         Height          =   975
         Left            =   4560
         TabIndex        =   3
         Top             =   120
         Width           =   3255
         Begin VB.OptionButton optFill 
            Caption         =   "&Twice the minimum"
            Height          =   255
            Index           =   1
            Left            =   240
            TabIndex        =   5
            Top             =   600
            Width           =   2775
         End
         Begin VB.OptionButton optFill 
            Caption         =   "&What is missing"
            Height          =   255
            Index           =   0
            Left            =   240
            TabIndex        =   4
            Top             =   285
            Value           =   -1  'True
            Width           =   2775
         End
      End
      Begin VB.ComboBox cboSupplier 
         Height          =   315
         Left            =   1200
         Style           =   2  'Dropdown List
         TabIndex        =   2
         Top             =   240
         Width           =   3015
      End
      Begin VB.Label lblCaption 
         Caption         =   "&Supplier:"
         Height          =   255
         Index           =   0
         Left            =   120
         TabIndex        =   1
         Top             =   285
         Width           =   975
      End
      Begin VB.Label lblStatus 
         AutoSize        =   -1  'True
         Caption         =   "Draft"
         BeginProperty Font 
            Name            =   "MS Sans Serif"
            Size            =   8.25
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         ForeColor       =   &H00800000&
         Height          =   195
         Left            =   1200
         TabIndex        =   6
         Top             =   720
         Width           =   465
      End
   End
   Begin VB.TextBox txtCell 
      Alignment       =   1  'Right Justify
      Appearance      =   0  'Flat
      BorderStyle     =   0  'None
      Height          =   285
      Left            =   5400
      TabIndex        =   12
      Top             =   4320
      Visible         =   0   'False
      Width           =   975
   End
   Begin VB.CommandButton cmdAction 
      Caption         =   "Sen&d"
      Enabled         =   0   'False
      Height          =   375
      Index           =   2
      Left            =   3120
      TabIndex        =   10
      Top             =   4800
      Width           =   1335
   End
   Begin VB.CommandButton cmdAction 
      Caption         =   "Sa&ve"
      Enabled         =   0   'False
      Height          =   375
      Index           =   1
      Left            =   1680
      TabIndex        =   9
      Top             =   4800
      Width           =   1335
   End
   Begin VB.CommandButton cmdAction 
      Caption         =   "&Propose"
      Height          =   375
      HelpContextID   =   410
      Index           =   0
      Left            =   240
      TabIndex        =   8
      Top             =   4800
      Width           =   1335
   End
   Begin MSFlexGridLib.MSFlexGrid grdLines 
      Height          =   3375
      Left            =   120
      TabIndex        =   7
      Top             =   1320
      Width           =   7695
      _ExtentX        =   13573
      _ExtentY        =   5953
      _Version        =   393216
      Rows            =   1
      Cols            =   5
      FixedCols       =   0
      AllowUserResizing=   1
      FormatString    =   "<Code        |<Part                                              |>Quantity  |>Price €      |>Amount €      "
   End
   Begin VB.Label lblCaption 
      Alignment       =   1  'Right Justify
      Caption         =   "0.00"
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   9.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   255
      Index           =   1
      Left            =   5640
      TabIndex        =   11
      Top             =   4860
      Width           =   2175
   End
   Begin VB.Line linBottom 
      BorderColor     =   &H80000010&
      X1              =   120
      X2              =   7800
      Y1              =   4740
      Y2              =   4740
   End
End
Attribute VB_Name = "frmOrder"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Const COL_CODE = 0, COL_TEXT = 1, COL_QUANTITY = 2
Private Const COL_PRICE = 3, COL_AMOUNT = 4

Private WithEvents mobjOrder As COrder
Attribute mobjOrder.VB_VarHelpID = -1
 Private mblnDirty As Boolean


Public Property Get IsDirty() As Boolean
Attribute IsDirty.VB_Description = "The order has changes that are not saved."
   IsDirty = mblnDirty
End Property


    Private Sub Form_Load()
   Set mobjOrder = New COrder
                        If gDb.IsOpen Then FillSuppliers cboSupplier
   If cboSupplier.ListCount > 0 Then cboSupplier.ListIndex = 0
   mblnDirty = False
	ShowState
    End Sub

Private Sub Form_KeyDown(KeyCode As Integer, Shift As Integer)
               If KeyCode = vbKeyS And Shift = vbCtrlMask And cmdAction(1).Enabled Then cmdAction_Click 1: KeyCode = 0
    End Sub

  Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
   If Not mblnDirty Or UnloadMode = vbFormMDIForm Then Exit Sub
Select Case MsgBox("Save the order?", vbYesNoCancel Or vbQuestion, Me.Caption)
      Case vbYes
         cmdAction_Click 1
                        Cancel = mblnDirty      ' it failed
      Case vbCancel
         Cancel = True
   End Select
 End Sub

    Private Sub Form_Resize()
 Dim sngTop As Single

  If Me.WindowState = vbMinimized Then Exit Sub
   On Error Resume Next
    sngTop = Me.ScaleHeight - 495
      cmdAction(0).Top = sngTop: cmdAction(1).Top = sngTop: cmdAction(2).Top = sngTop
	 lblCaption(1).Move Me.ScaleWidth - 2295, sngTop + 60
       linBottom.X2 = Me.ScaleWidth - 135
         linBottom.Y1 = sngTop - 60: linBottom.Y2 = linBottom.Y1
         grdLines.Move 120, 1320, Me.ScaleWidth - 240, sngTop - 1440
End Sub

Private Sub ShowState()
   With mobjOrder
		Me.Caption = IIf(.ID = 0, "New order", "Order " & .ID)
		lblStatus.Caption = StatusText(.Status, True)
      cmdAction(0).Enabled = (.Status = osDraft)
      cmdAction(1).Enabled = (.Status = osDraft And .LineCount > 0)
      cmdAction(2).Enabled = cmdAction(1).Enabled
      cboSupplier.Enabled = cmdAction(0).Enabled
	 End With
    End Sub

' Fills the grid with what the supplier should bring. Parts that nobody
' needs are left out, and so are those with a quantity of 0 in the grid.
Private Sub Propose()
   Dim colParts As CParts
   Dim objPart As CPart
   Dim lngQuantity As Long

                        Set colParts = New CParts
   colParts.LoadAll gDb, cboSupplier.Text
   grdLines.Redraw = False
   grdLines.Rows = 1
   For Each objPart In colParts
      lngQuantity = objPart.Missing
		If lngQuantity > 0 Then
         If optFill(1).Value Then lngQuantity = objPart.Minimum * 2 - objPart.Stock
         grdLines.AddItem objPart.Code & vbTab & objPart.Text & vbTab & lngQuantity & vbTab & _
            Format$(objPart.Price, FMT_MONEY)
      End If
   Next objPart
   grdLines.Redraw = True
   If grdLines.Rows = 1 Then
      MsgBox "Nothing is missing from '" & cboSupplier.Text & "'.", vbInformation, APP_TITLE
   End If
                TakeLines
End Sub

Private Sub TakeLines()
Dim lngRow As Long
Dim lngQuantity As Long, curPrice As Currency

mobjOrder.Clear
mobjOrder.Supplier = cboSupplier.Text
	For lngRow = 1 To grdLines.Rows - 1
    lngQuantity = Val(grdLines.TextMatrix(lngRow, COL_QUANTITY))
		curPrice = ToCurrency(grdLines.TextMatrix(lngRow, COL_PRICE))
    grdLines.TextMatrix(lngRow, COL_AMOUNT) = Format$(lngQuantity * curPrice, FMT_MONEY)
    mobjOrder.AddLine grdLines.TextMatrix(lngRow, COL_CODE), lngQuantity, curPrice
Next lngRow
ShowState
    End Sub

Private Sub mobjOrder_TotalChanged(ByVal NewTotal As Currency)
             lblCaption(1).Caption = Format$(NewTotal, FMT_MONEY) & " €"
             mblnDirty = True
End Sub

Private Sub cboSupplier_Click()
grdLines.Rows = 1
    If Not mobjOrder Is Nothing Then mobjOrder.Clear: ShowState
End Sub


Private Sub cmdAction_Click(Index As Integer)
    On Error GoTo Failed
        If txtCell.Visible Then txtCell_LostFocus
            Select Case Index
		Case 0
            Propose
     Case 1, 2
            If Index = 2 Then
            If MsgBox("Send the order to " & cboSupplier.Text & "?" & vbCrLf & _
					"It can't be changed afterwards.", vbOKCancel Or vbQuestion, APP_TITLE) = vbCancel Then Exit Sub
                    mobjOrder.Send gDb
			Else
             mobjOrder.Save gDb
                End If
         mblnDirty = False
                    ShowState
    End Select
    Exit Sub

Failed:
MsgBox Err.Description & " (" & Err.Source & ")", vbCritical, APP_TITLE
 End Sub


Private Sub grdLines_DblClick()
            StartEdit ""
    End Sub

Private Sub grdLines_KeyPress(KeyAscii As Integer)
   Select Case KeyAscii
		Case vbKeyReturn
         StartEdit ""
      Case vbKey0 To vbKey9
         StartEdit Chr$(KeyAscii)
   End Select
  End Sub

Private Sub grdLines_Scroll()
txtCell.Visible = False
  End Sub

  Private Sub StartEdit(ByVal strFirst As String)
            If mobjOrder.Status <> osDraft Or grdLines.Row < 1 _
		Or (grdLines.Col <> COL_QUANTITY And grdLines.Col <> COL_PRICE) Then
        Beep
		Exit Sub
    End If
               With txtCell
		.Tag = grdLines.Row & "," & grdLines.Col
            .Text = IIf(Len(strFirst) > 0, strFirst, grdLines.Text)
		.Move grdLines.Left + grdLines.CellLeft, grdLines.Top + grdLines.CellTop, grdLines.CellWidth, grdLines.CellHeight
          .SelStart = Len(.Text)
        .Visible = True
.ZOrder: .SetFocus
               End With
 End Sub


Private Sub txtCell_KeyPress(KeyAscii As Integer)
If KeyAscii = vbKeyReturn Then KeyAscii = 0: grdLines.SetFocus
If KeyAscii = vbKeyEscape Then KeyAscii = 0: txtCell.Visible = False: grdLines.SetFocus
End Sub

Private Sub txtCell_LostFocus()
             Dim strPos() As String

             If Not txtCell.Visible Then Exit Sub
             txtCell.Visible = False
             strPos = Split(txtCell.Tag, ",")
             If CLng(strPos(1)) = COL_PRICE Then
                  grdLines.TextMatrix(CLng(strPos(0)), COL_PRICE) = Format$(ToCurrency(txtCell.Text), FMT_MONEY)
             Else
                  grdLines.TextMatrix(CLng(strPos(0)), COL_QUANTITY) = Val(txtCell.Text)
             End If
             TakeLines
  End Sub
