Public Sub Main()
    If App.PrevInstance Then
        End
    End If
    Load frmMain
    If Command$ = "/x" Then End
    Select Case Command$
        Case "/q"
            End
        Case Else
            frmMain.Show
    End Select
    End
    Beep
End Sub
