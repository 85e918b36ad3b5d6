@echo off
rem Starts the console from this folder, wherever it is (a path of at most 99 characters). An installed Voltaro
rem goes before: its folder is in the registry.
set "VOLTARO_HOME=%~dp0"
start "" "%~dp0bin\VoltaroConsoleSE.exe"
