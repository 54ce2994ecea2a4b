Private Sub Run()
    On Error GoTo Failed ' below
    Beep
Again: ' once more
    Beep
Failed:' the end
    Beep
    If mOn Then ' running
        End ' for good
    End If
End Sub
