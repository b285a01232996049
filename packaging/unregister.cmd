@echo off
rem Removes what register.cmd registered; run it as administrator if that was.
setlocal
set here=%~dp0
set own=%SystemRoot%\System32
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set own=%SystemRoot%\Sysnative
if not exist "%SystemRoot%\SysWOW64\regsvr32.exe" goto only32

"%own%\regsvr32.exe" /s /u "%here%win64\VelmarMenu.dll"
if errorlevel 1 goto failed
"%SystemRoot%\SysWOW64\regsvr32.exe" /s /u "%here%win32\VelmarMenu.dll"
if errorlevel 1 goto failed
goto done

:only32
"%own%\regsvr32.exe" /s /u "%here%win32\VelmarMenu.dll"
if errorlevel 1 goto failed

:done
echo Velmar is not registered any more.
exit /b 0

:failed
echo Velmar could not be unregistered. "velmar doctor" says what is there.
exit /b 1
