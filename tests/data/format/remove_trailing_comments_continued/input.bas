Option Explicit
Public Sub Fill()
    x = 1 ' first _
    and more
    y = 2
End Sub
