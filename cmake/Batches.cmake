# More than half of what a file of tests costs is the headers that it has in common with its neighbours, and the templates and
# inline functions that both make of them with sanitizers in each. Several files behind one another in one translation unit,
# a batch, pay for them once. Switched off, every file is compiled alone, which shows what it forgot to include
# (tools/check_alone.sh). The program itself is always compiled file by file.
option(LUMIDEX_BATCHES "Compile the sources of the tests several at once" ${LUMIDEX_SANITIZE})

# compile_in_batches(<target> <size>): compiles the target's sources, at most <size> at once, in the order in which the target
# lists them. Neighbours share their unnamed namespace then. Sources that the build makes and those with options of their own
# stay alone. No path of the checkout is written into a batch, so that compiler caches serve every one.
function(compile_in_batches target size)
  if(NOT LUMIDEX_BATCHES)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  foreach(source IN LISTS sources)
    get_source_file_property(options ${source} COMPILE_OPTIONS)
    if(source MATCHES "\\.cpp$" AND NOT IS_ABSOLUTE ${source} AND NOT options)
      list(APPEND together ${source})
    else()
      list(APPEND compiled ${source})
    endif()
  endforeach()
  list(LENGTH together count)
  if(count LESS 2)
    return()
  endif()
  math(EXPR batches "(${count} + ${size} - 1) / ${size}")
  set(position 0)
  foreach(source IN LISTS together)
    get_filename_component(path ${source} ABSOLUTE)
    # As their headers are included: below src, tests or tools.
    file(RELATIVE_PATH path ${CMAKE_SOURCE_DIR} ${path})
    string(REGEX REPLACE "^[a-z]+/(.*)$" "\\1" path ${path})
    math(EXPR batch "${position} * ${batches} / ${count}")
    string(APPEND includes_${batch} "#include \"${path}\"\n")
    math(EXPR position "${position} + 1")
  endforeach()
  math(EXPR last "${batches} - 1")
  foreach(batch RANGE ${last})
    set(file ${CMAKE_CURRENT_BINARY_DIR}/batches/${target}_${batch}.cpp)
    file(CONFIGURE OUTPUT ${file} CONTENT "${includes_${batch}}")
    list(APPEND compiled ${file})
  endforeach()
  set_property(TARGET ${target} PROPERTY SOURCES ${compiled})
endfunction()
