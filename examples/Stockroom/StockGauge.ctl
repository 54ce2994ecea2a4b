VERSION 5.00
Begin VB.UserControl StockGauge 
   BackColor       =   &H80000005&
   ClientHeight    =   360
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   2400
   ScaleHeight     =   360
   ScaleWidth      =   2400
   Begin VB.Label lblText 
      Alignment       =   2  'Center
      BackStyle       =   0  'Transparent
      Caption         =   "0"
      Height          =   195
      Left            =   0
      TabIndex        =   0
      Top             =   75
      Width           =   2400
   End
   Begin VB.Line linMinimum 
      BorderColor     =   &H000000FF&
      BorderWidth     =   2
      X1              =   1200
      X2              =   1200
      Y1              =   0
      Y2              =   360
   End
   Begin VB.Shape shpBar 
      BackColor       =   &H00008000&
      BackStyle       =   1  'Opaque
      BorderStyle     =   0  'Transparent
      Height          =   360
      Left            =   0
      Top             =   0
      Width           =   1800
   End
End
Attribute VB_Name = "StockGauge"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Attribute VB_Description = "A bar that shows a stock level against its minimum."
Option Explicit

Public Event Click()
Attribute Click.VB_Description = "The user clicked the gauge."
Attribute Click.VB_UserMemId = -600
Attribute Click.VB_MemberFlags = "200"
Public Event LevelLow(ByVal Missing As Long)
Attribute LevelLow.VB_Description = "The value is below the minimum."
Attribute LevelLow.VB_HelpID = 510

Private Const DEF_COLOR = &H8000&
Private Const DEF_MAXIMUM = 100

Private mlngValue As Long
Private mlngMinimum As Long
Private mlngMaximum As Long
Private mclrBar As OLE_COLOR

Public Property Get Value() As Long
Attribute Value.VB_Description = "The level that the bar shows."
Attribute Value.VB_ProcData.VB_Invoke_Property = ";Data"
Attribute Value.VB_UserMemId = 0
Attribute Value.VB_HelpID = 511
   Value = mlngValue
    End Property


  Public Property Let Value(ByVal NewValue As Long)
mlngValue = NewValue
DrawBar
PropertyChanged "Value"
If mlngValue < mlngMinimum Then RaiseEvent LevelLow(mlngMinimum - mlngValue)
End Property


Public Property Get Minimum() As Long
Attribute Minimum.VB_Description = "The level that the red line marks."
Attribute Minimum.VB_ProcData.VB_Invoke_Property = ";Data"
   Minimum = mlngMinimum
End Property

Public Property Let Minimum(ByVal NewMinimum As Long)
   mlngMinimum = NewMinimum: DrawBar
   PropertyChanged "Minimum"
 End Property


Public Property Get Maximum() As Long
Maximum = mlngMaximum
 End Property


Public Property Let Maximum(ByVal NewMaximum As Long)
 If NewMaximum < 1 Then NewMaximum = 1       ' it's a divisor
  mlngMaximum = NewMaximum: DrawBar
   PropertyChanged "Maximum"
End Property

Public Property Get BarColor() As OLE_COLOR
Attribute BarColor.VB_ProcData.VB_Invoke_Property = ";Appearance"
BarColor = mclrBar
End Property

  Public Property Let BarColor(ByVal NewColor As OLE_COLOR)
   mclrBar = NewColor
   shpBar.BackColor = mclrBar
   PropertyChanged "BarColor"
End Property

Private Sub DrawBar()
Dim sngStep As Single
Dim lngShown As Long

If mlngMaximum < 1 Then Exit Sub
sngStep = UserControl.ScaleWidth / mlngMaximum
Select Case mlngValue
    Case Is < 0
        lngShown = 0
    Case Is > mlngMaximum
        lngShown = mlngMaximum
    Case Else
        lngShown = mlngValue
End Select
shpBar.Width = lngShown * sngStep
With linMinimum
    .Visible = (mlngMinimum > 0 And mlngMinimum <= mlngMaximum)
    .X1 = mlngMinimum * sngStep: .X2 = .X1
End With
lblText.Caption = mlngValue & " / " & mlngMaximum
End Sub


Private Sub UserControl_InitProperties()
        mlngMaximum = DEF_MAXIMUM
    BarColor = DEF_COLOR
      DrawBar
 End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
 With PropBag
  mlngMaximum = .ReadProperty("Maximum", DEF_MAXIMUM)
   mlngMinimum = .ReadProperty("Minimum", 0)
    mlngValue = .ReadProperty("Value", 0)
     BarColor = .ReadProperty("BarColor", DEF_COLOR)
       End With
       DrawBar
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
 PropBag.WriteProperty "Maximum", mlngMaximum, DEF_MAXIMUM
  PropBag.WriteProperty "Minimum", mlngMinimum, 0
    PropBag.WriteProperty "Value", mlngValue, 0
    PropBag.WriteProperty "BarColor", mclrBar, DEF_COLOR
End Sub

Private Sub UserControl_Resize()
shpBar.Height = UserControl.ScaleHeight
linMinimum.Y2 = UserControl.ScaleHeight
lblText.Move 0, (UserControl.ScaleHeight - lblText.Height) / 2, UserControl.ScaleWidth
DrawBar
End Sub

Private Sub UserControl_Click()
                        RaiseEvent Click
End Sub

  Private Sub lblText_Click()
             RaiseEvent Click
 End Sub
