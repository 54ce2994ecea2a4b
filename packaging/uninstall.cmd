@echo off
rem uninstall.cmd - takes back what install.cmd did. Then the folder can be deleted.
rem Close Visual Basic before, and start this as an administrator.
setlocal
set server=%SystemRoot%\SysWOW64\regsvr32.exe
if not exist "%server%" set server=%SystemRoot%\system32\regsvr32.exe
"%server%" /s /u /i "%~dp0Corvelle.dll"
if errorlevel 1 goto failed
echo Corvelle is uninstalled. Its folder can be deleted now.
exit /b 0

:failed
echo Corvelle.dll could not be unregistered. Start this as an administrator, with Visual Basic closed.
pause
exit /b 1
