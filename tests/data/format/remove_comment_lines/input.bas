'**********************
'* Ledger
'**********************
Option Explicit ' always
Rem old notes
Rem don't drop this one

Private mRows As Long

' Adds a row
Private Sub AddRow()
    ' one more
    mRows = mRows + 1 ' counted
    'mRows = 0
    REM
    Remark = "x"
End Sub
'
