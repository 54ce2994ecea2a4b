Private Sub Grid1_Click()
	Dim	x As Long	' column
	If x	= 1 Then
		Text1 =	"a	b"	
	    End If
 	 Call Show(x,	1)  	
	
	For	i = 1 To 3
		x = x + i
	Next
End Sub
