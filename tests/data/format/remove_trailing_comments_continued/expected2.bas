Option Explicit
Public Sub Fill()
  x = 1
  and more
  y = 2
End Sub
