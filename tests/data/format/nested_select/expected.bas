Private Sub Process(ByVal Kind As Integer, ByVal Mode As Integer)
  Select Case Kind
    Case 1
      Select Case Mode
      Case 10
        ReadAll
      Case 11
        WriteAll
    End Select
    Log "done"
    Case 2
      Log "two"
      Case 3
        Log "three"
        Case Else
          Log "other"
      End Select
    End Sub
    
    Private Sub Later()
      Select Case mKind
        Case 1
          Beep
        Case 2
          Beep
      End Select
    End Sub
