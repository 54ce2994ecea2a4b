'--- Cache of pictures ---

Option Explicit   ' on

Private mItems As New Collection ' of pictures


' Finds a picture.
Public Function Find(ByVal Key As String) As StdPicture
On Error Resume Next ' it may be missing

    Set Find = mItems(Key)
    Rem nothing to do
    Rem don't
    If Err.Number <> 0 Then  ' load it
        Set Find = LoadPicture(App.Path & "\" & Key)   ' from disk

        mItems.Add Find, Key
    End If
End Function
