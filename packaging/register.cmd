@echo off
rem Registers Velmar from where this file is: for all users when run as administrator, otherwise for you alone.
setlocal
set here=%~dp0
set own=%SystemRoot%\System32
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set own=%SystemRoot%\Sysnative
if not exist "%SystemRoot%\SysWOW64\regsvr32.exe" goto only32

"%own%\regsvr32.exe" /s "%here%win64\VelmarMenu.dll"
if errorlevel 1 goto failed
"%SystemRoot%\SysWOW64\regsvr32.exe" /s "%here%win32\VelmarMenu.dll"
if errorlevel 1 goto failed
goto done

:only32
"%own%\regsvr32.exe" /s "%here%win32\VelmarMenu.dll"
if errorlevel 1 goto failed

:done
echo Velmar is registered.
exit /b 0

:failed
echo Velmar could not be registered. "velmar doctor" says what is there.
exit /b 1
