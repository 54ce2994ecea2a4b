@echo off
rem install.cmd - registers Corvelle.dll and enters its add-ins in Visual Basic's list of add-ins.
rem Close Visual Basic before, and start this as an administrator.
setlocal
set server=%SystemRoot%\SysWOW64\regsvr32.exe
if not exist "%server%" set server=%SystemRoot%\system32\regsvr32.exe
"%server%" /s /i "%~dp0Corvelle.dll"
if errorlevel 1 goto failed
echo Corvelle is installed. In Visual Basic choose Add-Ins, Add-In Manager.
exit /b 0

:failed
echo Corvelle.dll could not be registered. Start this as an administrator, with Visual Basic closed.
pause
exit /b 1
