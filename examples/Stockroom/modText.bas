Attribute VB_Name = "modText"
Option Explicit

  ' Text helpers, used by Stockroom and by the label printer.
' Keep this module free of forms and of the database!

Public Const CODE_LEN As Integer = 9
Public Const LABEL_COLS As Integer = 32
Public Const FMT_MONEY As String = "#,##0.00"

    Public Enum PadSide
    padLeft = 0
  padRight = 1
padCenter = 2
End Enum

Private Type TextLine
    Words As Integer
Body As String
End Type

  Public Function PadText(ByVal strText As String, ByVal intWidth As Integer, _
    Optional ByVal intSide As PadSide = padRight) As String
  Dim intFree As Integer

  intFree = intWidth - Len(strText)
 If intFree <= 0 Then
    PadText = Left$(strText, intWidth)
                        Exit Function
  End If
  Select Case intSide
    Case padLeft
      PadText = Space$(intFree) & strText
    Case padRight
			PadText = strText & Space$(intFree)
    Case padCenter
                        PadText = Space$(intFree \ 2) & strText & Space$(intFree - intFree \ 2)
	End Select
End Function

    Public Function CleanCode(ByVal strCode As String) As String
	Dim i As Integer
      Dim strCh As String

    strCode = UCase$(Trim$(strCode))
 For i = 1 To Len(strCode)
		strCh = Mid$(strCode, i, 1)
		Select Case strCh
            Case "A" To "Z", "0" To "9", "-"
                CleanCode = CleanCode & strCh
			 Case "Ä", "Ö", "Ü": CleanCode = CleanCode & "X"   ' old codes of the Zürich list
        Case " ", ".", "/"
             ' dropped without a word
         Case Else
            Beep
		End Select
	Next i
End Function

  Public Function CheckDigit(ByVal strCode As String) As String
 Dim i As Integer, lngSum As Long


   i = Len(strCode): lngSum = 0
	Do While i > 0
    lngSum = lngSum + Asc(Mid$(strCode, i, 1)) * (1 + i Mod 3)
     i = i - 1
       Loop
       CheckDigit = Chr$(48 + lngSum Mod 10)
  End Function

  Public Function IsPartCode(ByVal strCode As String) As Boolean
  Rem A code is up to eight signs and the check digit, all cleaned.
  If Len(strCode) < 3 Or Len(strCode) > CODE_LEN Then _
		Exit Function
	If strCode <> CleanCode(strCode) Then Exit Function
  IsPartCode = (Right$(strCode, 1) = CheckDigit(Left$(strCode, Len(strCode) - 1)))
End Function

Public Function SqlText(ByVal strText As String) As String
' O'Brien & Sons taught us to double the apostrophe
	SqlText = "'" & Replace(strText, "'", "''") & "'"
End Function

    Public Function SqlDate(ByVal dtmDay As Date) As String
 SqlDate = Format$(dtmDay, "\#mm\/dd\/yyyy\#")   ' Jet reads US dates, whatever Windows says
  End Function

Public Function ToCurrency(ByVal strText As String) As Currency
On Error Resume Next
ToCurrency = CCur(Replace(strText, "'", ""))    ' 1'250.00 is how the Swiss write it
If Err.Number <> 0 Then ToCurrency = 0: Err.Clear
  End Function

Public Function WrapText(ByVal strText As String, ByVal intCols As Integer) As String
    Dim udtLine As TextLine
    Dim strWord() As String
        Dim i As Integer

    strWord = Split(Trim$(strText), " ")
      For i = LBound(strWord) To UBound(strWord)
If Len(strWord(i)) = 0 Then GoTo NextWord
            If udtLine.Words > 0 And _
			Len(udtLine.Body) + 1 + Len(strWord(i)) > intCols Then
			WrapText = WrapText & udtLine.Body & vbCrLf
                    udtLine.Body = "": udtLine.Words = 0
                   End If
        If udtLine.Words > 0 Then udtLine.Body = udtLine.Body & " "
          udtLine.Body = udtLine.Body & strWord(i)
                udtLine.Words = udtLine.Words + 1
NextWord:
Next i
	WrapText = WrapText & udtLine.Body
    End Function
