@echo off
rem Removes what register.cmd registered; run it as administrator if that was.
setlocal
set here=%~dp0
set system=%SystemRoot%\System32
if exist "%SystemRoot%\Sysnative\regsvr32.exe" set system=%SystemRoot%\Sysnative

if exist "%SystemRoot%\SysWOW64\regsvr32.exe" (
  "%system%\regsvr32.exe" /s /u "%here%win64\VelmarMenu.dll" || goto failed
  "%SystemRoot%\SysWOW64\regsvr32.exe" /s /u "%here%win32\VelmarMenu.dll" || goto failed
) else (
  "%system%\regsvr32.exe" /s /u "%here%win32\VelmarMenu.dll" || goto failed
)
echo Velmar is not registered any more.
exit /b 0

:failed
echo Velmar could not be unregistered. "win64\velmar doctor" says what is there.
exit /b 1
