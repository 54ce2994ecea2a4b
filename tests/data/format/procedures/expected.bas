Option Explicit

Private mCount As Long
Dim mName As String

Sub Main()
  Initialise
  frmMain.Show
End Sub

Function Twice(n As Long) As Long
  Twice = 2 * n
End Function

Private Sub Initialise()
  mCount = 0
  mName = "none"
End Sub

Private Function IsReady() As Boolean
  IsReady = (mCount > 0)
End Function

Public Sub Count()
  mCount = mCount + 1
End Sub

Public Function Total(ParamArray Values() As Variant) As Double
  Dim v As Variant
  For Each v In Values
    Total = Total + v
  Next v
End Function

Friend Sub Notify(ByVal Sender As Object)
  Sender.Refresh
End Sub

Friend Function Peek() As Long
  Peek = mCount
End Function
