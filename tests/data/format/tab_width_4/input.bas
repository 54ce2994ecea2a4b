Option Explicit

Public Sub ExportTable(ByVal TableName As String)
	Dim rs As Object
	Dim f As Integer
	Dim i As Long

	Set rs = OpenTable(TableName)
	f = FreeFile
	Open App.Path & "\" & TableName & ".txt" For Output As #f
	With rs
		Do While Not .EOF
			For i = 0 To .Fields.Count - 1
				If IsNull(.Fields(i).Value) Then
					Print #f, "";
				Else
					Print #f, .Fields(i).Value;
				End If
				If i < .Fields.Count - 1 Then Print #f, vbTab;
			Next i
			Print #f, ""
			.MoveNext
		Loop
	End With
	Close #f

	While Forms.Count > 1
		Unload Forms(Forms.Count - 1)
	Wend

	Do
		DoEvents
	Loop Until Not mBusy
End Sub
