Public Sub Update()
  ' This is done here _
  for historical reasons
    Refresh
  End Sub
