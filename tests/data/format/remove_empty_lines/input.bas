Option Explicit

Private mTotal As Currency

   
Public Sub Add(ByVal Value As Currency)

    ' first the check
    If Value = 0 Then Exit Sub
	
    mTotal = mTotal + Value ' then the sum

End Sub
 
