Option Explicit ' always
Rem don't drop this one

Private mRows As Long

Private Sub AddRow()
  mRows = mRows + 1 ' counted
  Remark = "x"
End Sub
