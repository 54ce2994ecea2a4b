Option Explicit
#Const DEBUGGING = 1
#If Win32 Then
  Private Declare Function GetTickCount Lib "kernel32" () As Long
  #Else
  Private Declare Function GetTickCount Lib "User" () As Long
  #End If
  
  Public Sub Trace(ByVal Text As String)
    #If DEBUGGING Then
      Debug.Print Text
      #End If
    End Sub
    
    #If UNICODE Then
      Public Function Upper(ByVal s As String) As String
        #Else
        Public Function Upper(s As String)
          #End If
          Upper = UCase$(s)
        End Function
