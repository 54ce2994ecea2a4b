Private Function Rate(ByVal Amount As Currency, ByVal Member As Boolean) As Double
		If Amount <= 0 Then Exit Function  
If Amount > 1000 Then Rate = 0.1 Else Rate = 0.05
		If Member Then ' members get more
	Rate = Rate + 0.02
        ElseIf Amount > 5000 Then    ' big orders too
Rate = Rate + 0.01  
  ElseIf Amount > 2500 And _
		Not mClosed Then
 	 Rate = Rate + 0.005 	
  Else 	
 	 Rate = Rate + 0.001	
 	 End If
		If Member And _ 	
Amount > 100 Then
   Rate = Rate * 2	
	End If
   If mClosed Then _
 	 Rate = 0
  If mClosed Then: Rate = 0  
 	 If Amount = 1 Then
		Rate = 1	
 	 Else: Rate = 2
 	 End If
  If InStr(mName, " Then") > 0 Then  
  If mName = "O'Brien" Then ' quoted	
        Rate = 3  
   ElseIf mName = "Then" Then ' or Then again
Rate = 4
	End If 	
		End If 	
 	 If Rate > 4 Then Rate = 4 ' if it is more Then cut
 	 End Function
