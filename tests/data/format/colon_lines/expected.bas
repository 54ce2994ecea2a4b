Public Sub Shuffle()
  Dim a As Long: Dim b As Long
  a = 1: b = 2
  If a > b Then a = b: b = 0
  For a = 1 To 3: b = b + a: Next a
    Do: b = b - 1: Loop Until b <= 0
    If a = 1 Then
      b = 1
      Else: b = 2
    End If
    Select Case a
      Case 1: b = 10: a = 0
      Case 2: b = 20
      Case Else: b = 30
    End Select
    While a < 3: a = a + 1: Wend
x = 1: y = 2:
      With Me: .Caption = "x": End With
        Beep
      End Sub
