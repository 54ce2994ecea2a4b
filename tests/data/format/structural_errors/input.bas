   Sub Broken()	
  Next i
	End Sub	
		Loop
  Case 1	
Next 	
		End Select
        ElseIf x Then
        y = 1	
End If
		End	
		Sub After()
z = 1
        End Sub 	
