# The portable zip: the folder as it is installed, with the simulated agent and the scripts that start both.
set(folder "${PROGRAMS}/Voltaro Console")
file(REMOVE_RECURSE ${folder})
file(COPY ${SOURCES}/installed/ DESTINATION ${folder})
file(COPY ${SOURCES}/portable/ DESTINATION ${folder})
file(COPY ${PROGRAMS}/VoltaroConsoleSE.exe ${PROGRAMS}/AgentSimulator.exe DESTINATION ${folder}/bin)
file(COPY ${PROGRAMS}/Voltaro_Help_SE.chm DESTINATION ${folder}/docs/help)
execute_process(COMMAND ${CMAKE_COMMAND} -E tar cf ${OUTPUT} --format=zip "Voltaro Console"
  WORKING_DIRECTORY ${PROGRAMS} COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${folder})
