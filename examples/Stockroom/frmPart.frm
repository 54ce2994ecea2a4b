VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Begin VB.Form frmPart 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Part"
   ClientHeight    =   4335
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   6735
   HelpContextID   =   300
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   4335
   ScaleWidth      =   6735
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdButton 
      Caption         =   "&Apply"
      Height          =   375
      Index           =   2
      Left            =   5400
      TabIndex        =   18
      Top             =   3840
      Width           =   1215
   End
   Begin VB.CommandButton cmdButton 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   375
      Index           =   1
      Left            =   4080
      TabIndex        =   17
      Top             =   3840
      Width           =   1215
   End
   Begin VB.CommandButton cmdButton 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   375
      Index           =   0
      Left            =   2760
      TabIndex        =   16
      Top             =   3840
      Width           =   1215
   End
   Begin TabDlg.SSTab tabPart 
      Height          =   3615
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   6495
      _ExtentX        =   11456
      _ExtentY        =   6376
      _Version        =   393216
      Tabs            =   3
      TabsPerRow      =   3
      TabHeight       =   520
      TabCaption(0)   =   "&General"
      Tab(0).ControlEnabled=   -1  'True
      Tab(0).Control(0)=   "lblField(0)"
      Tab(0).Control(0).Enabled=   0   'False
      Tab(0).Control(1)=   "lblField(1)"
      Tab(0).Control(1).Enabled=   0   'False
      Tab(0).Control(2)=   "lblField(2)"
      Tab(0).Control(2).Enabled=   0   'False
      Tab(0).Control(3)=   "txtField(0)"
      Tab(0).Control(3).Enabled=   0   'False
      Tab(0).Control(4)=   "txtField(1)"
      Tab(0).Control(4).Enabled=   0   'False
      Tab(0).Control(5)=   "cboSupplier"
      Tab(0).Control(5).Enabled=   0   'False
      Tab(0).Control(6)=   "chkDiscontinued"
      Tab(0).Control(6).Enabled=   0   'False
      Tab(0).ControlCount=   7
      TabCaption(1)   =   "&Stock"
      Tab(1).ControlEnabled=   0   'False
      Tab(1).Control(0)=   "fraStock"
      Tab(1).ControlCount=   1
      TabCaption(2)   =   "&Notes"
      Tab(2).ControlEnabled=   0   'False
      Tab(2).Control(0)=   "txtNotes"
      Tab(2).ControlCount=   1
      Begin VB.TextBox txtNotes 
         Height          =   2895
         Left            =   -74880
         MultiLine       =   -1  'True
         ScrollBars      =   2  'Vertical
         TabIndex        =   15
         Top             =   480
         Width           =   6255
      End
      Begin VB.Frame fraStock 
         Caption         =   "On the shelf"
         Height          =   2895
         Left            =   -74880
         TabIndex        =   8
         Top             =   480
         Width           =   6255
         Begin Stockroom.StockGauge gauStock 
            Height          =   375
            Left            =   240
            TabIndex        =   19
            Top             =   2280
            Width           =   5775
            _ExtentX        =   10186
            _ExtentY        =   661
            BarColor        =   12615680
         End
         Begin VB.TextBox txtField 
            Alignment       =   1  'Right Justify
            Height          =   315
            Index           =   4
            Left            =   1560
            TabIndex        =   14
            Top             =   1320
            Width           =   1335
         End
         Begin VB.TextBox txtField 
            Alignment       =   1  'Right Justify
            Height          =   315
            Index           =   3
            Left            =   1560
            TabIndex        =   12
            Top             =   840
            Width           =   1335
         End
         Begin VB.TextBox txtField 
            Alignment       =   1  'Right Justify
            Height          =   315
            Index           =   2
            Left            =   1560
            TabIndex        =   10
            Top             =   360
            Width           =   1335
         End
         Begin VB.Label lblField 
            Caption         =   "&Price in €:"
            Height          =   255
            Index           =   5
            Left            =   240
            TabIndex        =   13
            Top             =   1365
            Width           =   1215
         End
         Begin VB.Label lblField 
            Caption         =   "&Minimum:"
            Height          =   255
            Index           =   4
            Left            =   240
            TabIndex        =   11
            Top             =   885
            Width           =   1215
         End
         Begin VB.Label lblField 
            Caption         =   "S&tock:"
            Height          =   255
            Index           =   3
            Left            =   240
            TabIndex        =   9
            Top             =   405
            Width           =   1215
         End
      End
      Begin VB.CheckBox chkDiscontinued 
         Caption         =   "&Discontinued, order no more"
         Height          =   255
         Left            =   1560
         TabIndex        =   7
         Top             =   2040
         Width           =   3375
      End
      Begin VB.ComboBox cboSupplier 
         Height          =   315
         HelpContextID   =   312
         Left            =   1560
         TabIndex        =   6
         Top             =   1560
         Width           =   3375
      End
      Begin VB.TextBox txtField 
         Height          =   315
         Index           =   1
         Left            =   1560
         MaxLength       =   50
         TabIndex        =   4
         Top             =   1080
         Width           =   4695
      End
      Begin VB.TextBox txtField 
         BeginProperty Font 
            Name            =   "Courier New"
            Size            =   9.75
            Charset         =   0
            Weight          =   400
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   360
         HelpContextID   =   310
         Index           =   0
         Left            =   1560
         MaxLength       =   9
         TabIndex        =   2
         Top             =   600
         Width           =   1575
      End
      Begin VB.Label lblField 
         Caption         =   "S&upplier:"
         Height          =   255
         Index           =   2
         Left            =   240
         TabIndex        =   5
         Top             =   1605
         Width           =   1215
      End
      Begin VB.Label lblField 
         Caption         =   "Te&xt:"
         Height          =   255
         Index           =   1
         Left            =   240
         TabIndex        =   3
         Top             =   1125
         Width           =   1215
      End
      Begin VB.Label lblField 
         Caption         =   "&Code:"
         Height          =   255
         Index           =   0
         Left            =   240
         TabIndex        =   1
         Top             =   645
         Width           =   1215
      End
   End
End
Attribute VB_Name = "frmPart"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

 Private Enum PartField
  pfCode
    pfText
    pfStock
    pfMinimum
    pfPrice
End Enum

  Private Enum DialogButton
 dbOK
 dbCancel
dbApply
End Enum

Private mobjPart As CPart
  Private mblnFilling As Boolean

    Public Sub EditPart(ByVal objPart As CPart)
Set mobjPart = objPart
    Load Me
FillFields
      Me.Show vbModal
End Sub

Private Sub FillFields()
   mblnFilling = True
   With mobjPart
 Me.Caption = IIf(.ID = 0, "New part", "Part " & .Code)
      txtField(pfCode).Text = .Code: txtField(pfText).Text = .Text
                txtField(pfStock).Text = .Stock
      txtField(pfMinimum).Text = .Minimum
      txtField(pfPrice).Text = Format$(.Price, FMT_MONEY)
      cboSupplier.Text = .Supplier
      chkDiscontinued.Value = IIf(.Discontinued, vbChecked, vbUnchecked)
      txtNotes.Text = .Notes
   End With
   mblnFilling = False
   ShowGauge
   cmdButton(dbApply).Enabled = False
 End Sub

  Private Sub ShowGauge()
             Dim lngStock As Long, lngMinimum As Long

                lngStock = Val(txtField(pfStock).Text)
             lngMinimum = Val(txtField(pfMinimum).Text)
             tabPart.TabCaption(1) = "&Stock"        ' LevelLow puts the number behind it
             gauStock.Minimum = lngMinimum
                        gauStock.Maximum = IIf(lngStock > lngMinimum * 2, lngStock, lngMinimum * 2)
             gauStock.Value = lngStock
End Sub

Private Function Store() As Boolean
Dim i As Integer

On Error GoTo Wrong
For i = pfStock To pfPrice
If Not IsNumeric(txtField(i).Text) Then
tabPart.Tab = 1: txtField(i).SetFocus
MsgBox "A number is needed here.", vbExclamation, APP_TITLE
Exit Function
End If
Next i
i = pfCode: mobjPart.Code = txtField(pfCode).Text
i = pfStock: mobjPart.Stock = CLng(txtField(pfStock).Text)
i = pfMinimum: mobjPart.Minimum = CLng(txtField(pfMinimum).Text)
i = pfPrice: mobjPart.Price = ToCurrency(txtField(pfPrice).Text)
mobjPart.Text = Trim$(txtField(pfText).Text)
mobjPart.Supplier = Trim$(cboSupplier.Text)
mobjPart.Discontinued = (chkDiscontinued.Value = vbChecked)
mobjPart.Notes = txtNotes.Text
mobjPart.Save gDb
Store = True
cmdButton(dbApply).Enabled = False
Exit Function

Wrong:
MsgBox Err.Description, vbExclamation, APP_TITLE
tabPart.Tab = IIf(i >= pfStock, 1, 0)
End Function

  Private Sub Form_Load()
Rem The list has what the store knows; a new name may be typed in.
      If gDb.IsOpen Then FillSuppliers cboSupplier
      tabPart.Tab = 0
End Sub

Private Sub Form_Unload(Cancel As Integer)
                        Set mobjPart = Nothing
 End Sub

Private Sub cmdButton_Click(Index As Integer)
    Select Case Index
        Case dbOK
        If Not cmdButton(dbApply).Enabled Then
            Unload Me
            ElseIf Store() Then
                Unload Me
              End If
            Case dbCancel
         Unload Me
        Case dbApply
                If Store() Then FillFields
      End Select
    End Sub

    Private Sub txtField_Change(Index As Integer)
            If mblnFilling Then Exit Sub
cmdButton(dbApply).Enabled = True
    If Index = pfStock Or _
       Index = pfMinimum Then
        ShowGauge
    End If
End Sub

Private Sub txtField_GotFocus(Index As Integer)
   With txtField(Index)
      .SelStart = 0
      .SelLength = Len(.Text)
   End With
End Sub

Private Sub txtField_LostFocus(Index As Integer)
   ' A code without its check digit gets one.
If Index <> pfCode Then Exit Sub
   With txtField(pfCode)
      .Text = CleanCode(.Text)
      If Len(.Text) > 1 And Len(.Text) < CODE_LEN And Not IsPartCode(.Text) Then .Text = .Text & CheckDigit(.Text)
   End With
End Sub

  Private Sub cboSupplier_Change()
            If Not mblnFilling Then cmdButton(dbApply).Enabled = True
 End Sub

Private Sub cboSupplier_Click()
    cboSupplier_Change
  End Sub

Private Sub chkDiscontinued_Click()
  If Not mblnFilling Then cmdButton(dbApply).Enabled = True
End Sub

Private Sub txtNotes_Change()
                If Not mblnFilling Then cmdButton(dbApply).Enabled = True
End Sub

Private Sub gauStock_LevelLow(ByVal Missing As Long)
   tabPart.TabCaption(1) = "&Stock (-" & Missing & ")"
End Sub


Private Sub tabPart_Click(PreviousTab As Integer)
If Not Me.Visible Then Exit Sub
    If tabPart.Tab = 0 Then txtField(pfCode).SetFocus Else If tabPart.Tab = 1 Then txtField(pfStock).SetFocus
End Sub
