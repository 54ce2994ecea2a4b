Public Function DayName(ByVal Day As Integer) As String
    Select Case Day
        Case 1
            DayName = "Monday"
        Case 2: DayName = "Tuesday"
        Case 3, 4
            DayName = "Wednesday or Thursday"
        Case 5:
            DayName = "Friday"
        Case Is > 7
            Err.Raise 5
        Case Else ' the weekend
            DayName = "Weekend"
    End Select
End Function

Private Sub Form_KeyDown(KeyCode As Integer, Shift As Integer)
    Dim i As Long
    For i = 1 To 3
        Select Case True
            Case KeyCode = vbKeyF1
                If Shift = 0 Then
                    ShowHelp
                End If
            Case KeyCode = vbKeyEscape: Unload Me
        End Select
    Next i
    Select Case Shift
    End Select
End Sub
