' Ledger module ' with two
DefLng A-Z ' kept: above the declarations
Option Explicit
Private mRows As Long
Private mName As String

Public Sub AddRow(ByVal Text As String)
  ' this line stays
  Rem this one too
  mRows = mRows + 1
  mName = "it's " & Text
  If mRows > 10 Then
    Err.Raise 5
  End If
  Debug.Print "a'b"; "c"
  Debug.Print "plain"
  Rem it
End Sub
