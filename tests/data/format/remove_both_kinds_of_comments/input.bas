' This module needs Option Explicit
DefInt A-Z ' numbers
Sub Main() ' entry
    n = 1   ' one
End Sub
