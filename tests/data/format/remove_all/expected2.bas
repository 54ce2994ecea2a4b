Option Explicit
Private mItems As New Collection
Public Function Find(ByVal Key As String) As StdPicture
    On Error Resume Next
    Set Find = mItems(Key)
    If Err.Number <> 0 Then
        Set Find = LoadPicture(App.Path & "\" & Key)
        mItems.Add Find, Key
    End If
End Function
