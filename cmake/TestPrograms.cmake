# lumidex_test(<name> LIBRARIES <lib>... SOURCES <file>...): one test program, run as one ctest case in the top folder,
# where tests find the files of the project. No path is compiled in, so that compiler caches serve every checkout.
# With PRECOMPILED it shares the precompiled headers of the tests of the logic.
# Its sources are compiled in batches: a name that one of them takes is taken for its neighbours too.
function(lumidex_test name)
  cmake_parse_arguments(ARG "PRECOMPILED" "TIMEOUT" "SOURCES;LIBRARIES;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  compile_in_batches(${name} 4)
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  # AddressSanitizer called at each access finds what its code written out there finds, and takes a tenth less to compile.
  if(LUMIDEX_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${name} PRIVATE --param=asan-instrumentation-with-call-threshold=0)
  endif()
  if(ARG_PRECOMPILED)
    precompile_as(${name} tests_precompiled)
  endif()
  add_test(NAME ${name} COMMAND ${name} WORKING_DIRECTORY ${CMAKE_SOURCE_DIR})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 300)
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}")
endfunction()
