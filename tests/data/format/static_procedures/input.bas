  Option Explicit

		Private Static Function NextId() As Long
Static id As Long  
	id = id + 1
  NextId = id	
		End Function	
  Public Static Sub Reset()
	Beep
	If mOn Then
	Beep
 	 End If
		End Sub
