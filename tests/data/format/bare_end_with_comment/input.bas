Public Sub Quit()
    If mDirty Then
    End ' without saving
End If
End Sub
