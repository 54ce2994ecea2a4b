Private Declare Function SetWindowPos Lib "user32" (ByVal hwnd As Long, _
ByVal hWndInsertAfter As Long, ByVal x As Long, ByVal y As Long, _
ByVal cx As Long, ByVal cy As Long, ByVal wFlags As Long) As Long

Public Sub Place(ByVal Target As Form, _
  Optional ByVal OnTop As Boolean = False, _
  Optional ByVal Left As Long = 0)
  Dim sql As String
  sql = "SELECT * " & _
  "FROM Orders " & _
  "WHERE Total > 0"
  If Target.Visible And _
  Not Target.MDIChild Then
    Call SetWindowPos(Target.hwnd, _
    IIf(OnTop, -1, -2), _
    Left, 0, 0, 0, 1)
  End If
  If Target.Visible Then _
  Target.Hide
  MsgBox "This is a long message that goes on " & _
  "and on.", _
  vbInformation Or vbOKOnly
End Sub

Public Sub Save()
  Open mPath _
  For Output As #1
    Print #1, mText
    Close #1
  End Sub
