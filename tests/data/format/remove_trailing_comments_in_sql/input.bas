Option Explicit

Public Function FindUser(ByVal Name As String) As Object
    Dim sql As String
    sql = "SELECT * FROM Users WHERE Name = '" & Name & "'"
    sql = sql & " AND Active = 'Y'" ' only the active
    sql = "SELECT * FROM " & Table & " WHERE Name = '" & Name & "'"
    sql = Replace(sql, "'", "''") ' double them
    Set FindUser = mDb.Execute(sql) ' run it
End Function
