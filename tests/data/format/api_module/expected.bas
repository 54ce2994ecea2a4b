' Window titles by callback
Option Explicit

Private Declare Function EnumWindows Lib "user32" (ByVal lpEnumFunc As Long, ByVal lParam As Long) As Long
Private Declare Function GetWindowText Lib "user32" Alias "GetWindowTextA" _
(ByVal hwnd As Long, ByVal lpString As String, ByVal cch As Long) As Long

Private Const MAX_TEXT As Long = 255
Private mTitles As Collection

Public Function Titles() As Collection
    On Error GoTo Failed
    Set mTitles = New Collection
    EnumWindows AddressOf EnumProc, 0
    Set Titles = mTitles
    Exit Function
Failed:
    Set mTitles = Nothing
End Function

Private Function EnumProc(ByVal hwnd As Long, ByVal lParam As Long) As Long
    Dim s As String, n As Long
    s = String$(MAX_TEXT, vbNullChar)
    n = GetWindowText(hwnd, s, MAX_TEXT)
    If n > 0 Then
        mTitles.Add Left$(s, n), "k" & hwnd
    End If
    EnumProc = 1 ' go on
End Function
