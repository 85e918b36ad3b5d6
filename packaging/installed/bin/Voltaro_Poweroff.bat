@echo off
rem The Voltaro agent runs this script before it powers the PC off, when the power scheme in force has
rem "Before Shutdown, execute: Voltaro_Poweroff.bat" checked (Settings - Power Scheme - Poweroff Options).
rem
rem Put your own commands below. They run without a window and without a user, so nothing may ask for input.
rem Keep them short: the power-off waits until this script has ended. Examples (remove "rem " to use them):
rem
rem   net use * /delete /yes
rem   xcopy "C:\Work" "D:\Backup\Work" /d /e /c /i /y >nul
rem   echo %date% %time% powered off >> "%~dp0poweroff.log"

exit /b 0
