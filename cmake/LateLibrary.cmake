# late_library(<target> <NAME> <libraries> <include directories>...): the target sees the headers of the first of the
# libraries and is told the name that programs link it under, as LUMIDEX_<NAME>_FILE, to open it by when it is needed.
function(late_library target name libraries)
  list(GET libraries 0 library)
  execute_process(COMMAND ${CMAKE_OBJDUMP} -p ${library} OUTPUT_VARIABLE facts COMMAND_ERROR_IS_FATAL ANY)
  if(NOT facts MATCHES "SONAME +([^\n]+)")
    message(FATAL_ERROR "${library} is no shared library")
  endif()
  target_compile_definitions(${target} PRIVATE LUMIDEX_${name}_FILE="${CMAKE_MATCH_1}")
  target_include_directories(${target} PRIVATE ${ARGN})
endfunction()
