@echo off
rem Starts the simulated agent in a window of its own and the console against it. Close that window to end the
rem agent; "bin\AgentSimulator.exe --help" lists the machines that it can play.
start "Voltaro agent simulator" "%~dp0bin\AgentSimulator.exe" %*
call "%~dp0Start Voltaro Console.cmd"
