' Module: Reports
'   prints what there is
Rem Written for the second version
' The following is required:
Option Explicit

Private mPages As Long ' pages so far

Public Sub PrintAll() ' the whole lot
  ' Loop over the pages
  Dim i As Long      ' counter
  Rem If mPages = 0 Then
  For i = 1 To mPages ' from the first
    'End Sub
    Debug.Print "it's page "; i ' isn't it
    Rem it's the last one
' the parameters are:
    PrintPage i
  Next ' page
  ' a comment that goes on _
  in the next line
  ' Select Case x
End Sub ' PrintAll
'
