Attribute VB_Name = "modApi"
Option Explicit

' Windows calls, and the thin wrappers that the rest of the program uses.


#Const TRACE_TO_FILE = 0

Public Type RECT
 Left As Long
  Top As Long
    Right As Long
    Bottom As Long
 End Type


Private Type SYSTEMTIME
    wYear As Integer
wMonth As Integer
wDayOfWeek As Integer
    wDay As Integer
    wHour As Integer
    wMinute As Integer
wSecond As Integer
    wMilliseconds As Integer
End Type

    Public Const SW_SHOWNORMAL As Long = 1
Private Const BUF_SIZE As Long = 260
Private Const LVM_FIRST As Long = &H1000
Private Const LVM_SETCOLUMNWIDTH As Long = LVM_FIRST + 30
Private Const LVSCW_AUTOSIZE_USEHEADER As Long = -2
Private Const SPI_GETWORKAREA = 48&

Private Declare Function GetPrivateProfileString Lib "kernel32" _
      Alias "GetPrivateProfileStringA" ( _
ByVal lpApplicationName As String, _
 ByVal lpKeyName As String, _
      ByVal lpDefault As String, _
    ByVal lpReturnedString As String, _
    ByVal nSize As Long, _
ByVal lpFileName As String) As Long
Private Declare Function WritePrivateProfileString Lib "kernel32" _
      Alias "WritePrivateProfileStringA" (ByVal lpApplicationName As String, _
    ByVal lpKeyName As String, ByVal lpString As String, _
    ByVal lpFileName As String) As Long
  Private Declare Function GetUserName Lib "advapi32.dll" Alias "GetUserNameA" (ByVal lpBuffer As String, nSize As Long) As Long
Private Declare Function SendMessage Lib "user32" Alias "SendMessageA" ( _
    ByVal hwnd As Long, ByVal wMsg As Long, _
ByVal wParam As Long, lParam As Any) As Long
Private Declare Function ShellExecute Lib "shell32.dll" Alias "ShellExecuteA" _
    (ByVal hwnd As Long, ByVal lpOperation As String, _
  ByVal lpFile As String, ByVal lpParameters As String, _
  ByVal lpDirectory As String, ByVal nShowCmd As Long) As Long
Private Declare Function SystemParametersInfo Lib "user32" Alias "SystemParametersInfoA" (ByVal uAction As Long, _
ByVal uParam As Long, lpvParam As Any, ByVal fuWinIni As Long) As Long
Private Declare Sub GetSystemTime Lib "kernel32" (lpSystemTime As SYSTEMTIME)
Public Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)

    Public Function ReadIni(ByVal strSection As String, ByVal strKey As String, _
     ByVal strDefault As String) As String
Dim strBuf As String
    Dim lngLen As Long

      strBuf = String$(BUF_SIZE, vbNullChar)
lngLen = GetPrivateProfileString(strSection, strKey, strDefault, _
     strBuf, BUF_SIZE, IniFile())
      ReadIni = Left$(strBuf, lngLen)
End Function

Public Sub WriteIni(ByVal strSection As String, ByVal strKey As String, ByVal strValue As String)
If WritePrivateProfileString(strSection, strKey, strValue, IniFile()) = 0 Then _
Trace "WriteIni", "cannot write " & IniFile()
    End Sub


Private Function IniFile() As String
 IniFile = App.Path
   If Right$(IniFile, 1) <> "\" Then IniFile = IniFile & "\"
   IniFile = IniFile & App.EXEName & ".ini"
  End Function

    Public Function WindowsUser() As String
 Dim strBuf As String, lngLen As Long

  lngLen = BUF_SIZE
   strBuf = String$(lngLen, vbNullChar)
    If GetUserName(strBuf, lngLen) <> 0 Then
      WindowsUser = Left$(strBuf, lngLen - 1)     ' lngLen counts the closing zero
      Else
        WindowsUser = "?"
         End If
End Function

Public Sub FitColumns(ByVal lvw As MSComctlLib.ListView)
               Dim i As Long
    For i = 0 To lvw.ColumnHeaders.Count - 1
                   SendMessage lvw.hwnd, LVM_SETCOLUMNWIDTH, i, ByVal LVSCW_AUTOSIZE_USEHEADER
Next
End Sub

Public Sub KeepOnScreen(ByVal frm As Object)
Dim udtArea As RECT


If SystemParametersInfo(SPI_GETWORKAREA, 0, udtArea, 0) = 0 Then Exit Sub
With udtArea
    If frm.Left > .Right * Screen.TwipsPerPixelX - 600 Then frm.Left = 0
    If frm.Top > .Bottom * Screen.TwipsPerPixelY - 600 Then frm.Top = 0
End With
    End Sub

  Public Function OpenDocument(ByVal hwndOwner As Long, ByVal strFile As String) As Boolean
' everything up to 32 is an error number
OpenDocument = ShellExecute(hwndOwner, "open", strFile, vbNullString, _
    vbNullString, SW_SHOWNORMAL) > 32
 End Function

  Public Sub Trace(ByVal strWhere As String, ByVal strText As String)
  Dim udtNow As SYSTEMTIME
  Dim strStamp As String

    GetSystemTime udtNow
     strStamp = Format$(udtNow.wHour, "00") & ":" & Format$(udtNow.wMinute, "00") & ":" & Format$(udtNow.wSecond, "00")
#If TRACE_TO_FILE Then
     Dim intFile As Integer
      intFile = FreeFile
        Open App.Path & "\trace.log" For Append As #intFile
        Print #intFile, strStamp; " "; strWhere; ": "; strText
         Close #intFile
#Else
          Debug.Print strStamp; " "; strWhere; ": "; strText
#End If
    End Sub
