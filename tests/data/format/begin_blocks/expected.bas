Begin Form1
  Caption = "Main"
  BeginProperty Font
    Name = "MS Sans Serif"
    Size = 8.25
  EndProperty
  Begin Frame1
    Begin Text1
      Text = ""
    End
  End
  Begin VB.Label Label1
  Caption = "Name"
End
  End
