Sub Main() ' entry
    x = 1 ' one
    ' comment
    Select Case x ' what
        Case 1 ' yes
            Beep ' loud
    End Select
End Sub
