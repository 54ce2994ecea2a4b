DefInt A-Z 
Sub Main() 
  n = 1   
End Sub
