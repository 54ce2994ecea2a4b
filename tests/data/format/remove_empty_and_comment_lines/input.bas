' Start form

Option Explicit

Private Sub Form_Load()
' caption
  Me.Caption = "Start"

  If mOn Then
      ' now
      Show
  End If
End Sub
