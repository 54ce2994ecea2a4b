Option Explicit
Private Sub Form_Load()
        Me.Caption = "Start"
        If mOn Then
                Show
        End If
End Sub
