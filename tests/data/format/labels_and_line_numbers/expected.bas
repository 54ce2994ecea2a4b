Public Sub LoadConfig()
  On Error GoTo ErrHandler
  10 Open "config.txt" For Input As #1
  20 Do While Not EOF(1)
  30   Line Input #1, s
  40   If Len(s) > 0 Then
    50     mCount = mCount + 1
    60   End If
    70 Loop
    80 Close #1
ExitHere:
    Exit Sub
ErrHandler:
    MsgBox Err.Description
    Resume ExitHere
  End Sub
  
  Private Function Attempt() As Boolean
    Dim n As Integer
Retry:
    n = n + 1
    If n > 3 Then GoTo GiveUp
    If Not Connect() Then GoTo Retry
    again: n = n - 1
    GiveUp: ' not in the first column
100:
    Attempt = (n > 0)
  End Function
