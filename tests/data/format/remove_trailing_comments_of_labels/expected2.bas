Private Sub Run()
  On Error GoTo Failed
  Beep
Again:
  Beep
Failed:
  Beep
  If mOn Then
    End
  End If
End Sub
