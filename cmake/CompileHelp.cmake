# Compiles the help: copies the pages from SOURCES into FOLDER, has SCENARIO make the pictures there, and runs COMPILER, whose
# file becomes HELP_FILE. Fails when the compiler misses anything.
file(REMOVE_RECURSE ${FOLDER})
file(MAKE_DIRECTORY ${FOLDER}/pictures)
file(GLOB pages ${SOURCES}/*.html ${SOURCES}/*.hh? ${SOURCES}/*.css ${SOURCES}/*.scn)
file(COPY ${pages} DESTINATION ${FOLDER})

# Windows that nobody sees. What the toolkit keeps until its end is no leak of a picture.
set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{QT_SCALE_FACTOR} 1)
set(ENV{ASAN_OPTIONS} detect_leaks=0)
execute_process(COMMAND ${SCENARIO} --qt pictures.scn WORKING_DIRECTORY ${FOLDER}
  RESULT_VARIABLE code OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(NOT code EQUAL 0)
  message(FATAL_ERROR "The pictures of the help could not be made:\n${said}")
endif()

execute_process(COMMAND ${COMPILER} Lumidex100.hhp WORKING_DIRECTORY ${FOLDER}
  RESULT_VARIABLE code OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(NOT code EQUAL 0 OR said MATCHES "couldn't find")
  message(FATAL_ERROR "The help could not be compiled:\n${said}")
endif()
file(COPY_FILE ${FOLDER}/Lumidex100.chm ${HELP_FILE})
