' Ledger module ' with two
DefLng A-Z ' kept: above the declarations
Option Explicit ' always
Private mRows As Long   ' rows
Private mName As String ' it's the name

Public Sub AddRow(ByVal Text As String) ' adds
    ' this line stays
    Rem this one too
    mRows = mRows + 1   ' one more
    mName = "it's " & Text ' say "hi"
    If mRows > 10 Then ' too many
        Err.Raise 5 ' gone
    End If ' rows
    Debug.Print "a'b"; "c" ' twice
    Debug.Print "plain"
    Rem it's cut here
End Sub ' AddRow
