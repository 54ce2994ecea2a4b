Attribute VB_Name = "modMain"
Option Explicit

' STOCKROOM - parts, stock levels and purchase orders
    '
' 02.03.2001  rb  first version for the store in Zürich
' 17.11.2002  rb  orders
' 09.07.2004  mk  gauge control, prices in €
' The list of suppliers is still a plain column of the part table; _
one day it should become a table of its own.

  Public Const APP_TITLE As String = "Stockroom"
Public Const ERR_STOCK As Long = vbObjectError + 1000
Private Const DEF_FILE = "stock.mdb"

Public Enum OrderStatus
  osDraft = 0
osSent = 1
  osPartly = 2
    osClosed = 3
    osCancelled = 9
    End Enum

Public Enum PartColumn
    pcCode
      pcText
    pcSupplier
    pcStock
    pcMinimum
      pcPrice
End Enum


Public gDb As CDatabase
Public gstrUser As String

Public Sub Main()
  Dim strFile As String


  If App.PrevInstance Then
   MsgBox APP_TITLE & " is already running.", vbExclamation, APP_TITLE
    End
     End If
      gstrUser = WindowsUser()
        strFile = ReadIni("Data", "File", App.Path & "\" & DEF_FILE)
        Set gDb = New CDatabase
         On Error GoTo NoDatabase
          gDb.OpenFile strFile
           On Error GoTo 0
             frmMain.Show
             frmParts.Show
              Exit Sub

NoDatabase:
               Screen.MousePointer = vbDefault
                 If MsgBox("The file '" & strFile & "' can't be opened." & vbCrLf & vbCrLf & Err.Description & _
                 vbCrLf & "Go on without data?", vbYesNo Or vbCritical, APP_TITLE) = vbNo Then
                  Set gDb = Nothing
                   End
                    End If
                      Resume Next
    End Sub

' Reads a stock count: one line a part, the code and the number counted,
' with a semicolon between them. Returns the number of parts changed.
Public Function ImportCount(ByVal strFile As String) As Long
 Dim intFile As Integer
             Dim strLine As String, strPart() As String
             Dim lngLine As Long, lngRows As Long

             On Error GoTo ImportFailed
10  intFile = FreeFile
20  Open strFile For Input As #intFile
30  gDb.BeginWork
             Do Until EOF(intFile)
40      Line Input #intFile, strLine
                  lngLine = lngLine + 1
50      If Len(Trim$(strLine)) = 0 Or Left$(strLine, 1) = ";" Then GoTo SkipLine
                  strPart = Split(strLine, ";")
If UBound(strPart) < 1 Then
                       Err.Raise ERR_STOCK, "ImportCount", "No semicolon in the line."
                  ElseIf Not IsNumeric(strPart(1)) Then
                Err.Raise ERR_STOCK, "ImportCount", "'" & strPart(1) & "' is no number."
                  End If
60      gDb.Execute "UPDATE Part SET Stock = " & CLng(strPart(1)) & _
                       ", CountedOn = " & SqlDate(Date) & ", CountedBy = " & SqlText(gstrUser) & _
                       " WHERE Code = '" & CleanCode(strPart(0)) & "'", lngRows
                        ImportCount = ImportCount + lngRows
SkipLine:
 Loop
70  gDb.CommitWork "Part"
             Close #intFile
             Exit Function

ImportFailed:
             Trace "ImportCount", "line " & lngLine & ", Erl " & Erl & ": " & Err.Description
             MsgBox "Line " & lngLine & " of the count: " & Err.Description & vbCrLf & _
                  "Nothing was changed.", vbExclamation, APP_TITLE
             If Erl > 30 Then gDb.RollbackWork
             If intFile <> 0 Then Close #intFile
ImportCount = 0
End Function

Public Sub WriteStockList(ByVal strFile As String, ByVal colParts As CParts)
Dim intFile As Integer
Dim objPart As CPart
Dim curTotal As Currency, lngShort As Long


intFile = FreeFile
Open strFile For Output As #intFile
Print #intFile, PadText("Code", 10); PadText("Part", 34); PadText("Stock", 8, padLeft); PadText("Value", 14, padLeft)
Print #intFile, String$(66, "-")
For Each objPart In colParts
    With objPart
        Print #intFile, PadText(.Code, 10); PadText(.Text, 34);
        Print #intFile, PadText(CStr(.Stock), 8, padLeft);
        Print #intFile, PadText(Format$(.Value, FMT_MONEY), 14, padLeft);
        If .Missing > 0 Then Print #intFile, "  *": lngShort = lngShort + 1 Else Print #intFile, ""
        curTotal = curTotal + .Value
    End With
Next objPart
Print #intFile, String$(66, "-")
Print #intFile, PadText("Total €", 52); PadText(Format$(curTotal, FMT_MONEY), 14, padLeft)
If lngShort > 0 Then Print #intFile, "* below the minimum: " & lngShort
Close #intFile
End Sub

Public Sub FillSuppliers(ByVal cbo As ComboBox)
  Dim rs As ADODB.Recordset

  cbo.Clear
Set rs = gDb.Query("SELECT DISTINCT Supplier FROM Part WHERE Supplier <> '' ORDER BY Supplier")
                        While Not rs.EOF
    cbo.AddItem rs!Supplier & ""
    rs.MoveNext
                Wend
  rs.Close: Set rs = Nothing
  End Sub

Public Function StatusText(ByVal intStatus As OrderStatus, _
                Optional ByVal blnLong As Boolean = False) As String
   Select Case intStatus
      Case osDraft: StatusText = "Draft"
      Case osSent, osPartly
 Select Case blnLong
            Case True
 StatusText = "With the supplier"
               If intStatus = osPartly Then StatusText = StatusText & ", part of it came"
                Case Else
               StatusText = "Sent"
         End Select
      Case osClosed
         StatusText = "Closed"
      Case Else
         StatusText = "Status " & intStatus
   End Select
  End Function
