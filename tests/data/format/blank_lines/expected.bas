Sub Main()
    
    Beep
    
End Sub

