@echo off
rem Registers Velmar from where this file is: for all users when run as administrator, otherwise for you alone.
setlocal
set here=%~dp0
set system=%SystemRoot%\System32
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set system=%SystemRoot%\Sysnative

if exist "%SystemRoot%\SysWOW64\regsvr32.exe" (
  "%system%\regsvr32.exe" /s "%here%win64\VelmarMenu.dll" || goto failed
  "%SystemRoot%\SysWOW64\regsvr32.exe" /s "%here%win32\VelmarMenu.dll" || goto failed
) else (
  "%system%\regsvr32.exe" /s "%here%win32\VelmarMenu.dll" || goto failed
)
echo Velmar is registered.
exit /b 0

:failed
echo Velmar could not be registered. "win64\velmar doctor" says what is there.
exit /b 1
