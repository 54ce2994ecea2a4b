Private Sub Grid1_Click()
  Dimx As Long' column
  If x= 1 Then
    Text1 ="ab"
  End If
  Call Show(x,1)
  
  Fori = 1 To 3
  x = x + i
Next
End Sub
