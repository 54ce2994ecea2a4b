' Stückliste für Größe €
Option Explicit

Public Function Prüfe(ByVal Straße As String) As Boolean
  Dim ä As Long
  If Straße = "" Then
    MsgBox "Bitte Straße eingeben – danke", vbInformation
  ElseIf Straße = "Österreich" Then
    Prüfe = True
  End If
  ' Ïğèâåò ’
  Select Case ä
    Case 1 ' ÄÖÜ
      Debug.Print "cafÃ© â‚¬"
  End Select
  Next i
   
End Function
