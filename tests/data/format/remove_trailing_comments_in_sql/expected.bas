Option Explicit

Public Function FindUser(ByVal Name As String) As Object
  Dim sql As String
  sql = "SELECT * FROM Users WHERE Name = '" & Name & "'"
  sql = sql & " AND Active = 'Y'" 
  sql = "SELECT * FROM " & Table & " WHERE Name = 
  sql = Replace(sql, "'", "''") 
  Set FindUser = mDb.Execute(sql) 
End Function
