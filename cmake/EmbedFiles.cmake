# embed_files(<target> <file>...): compiles the bytes of files into the target. A file a/b.png is defined as
# `extern const std::span<const std::uint8_t> bBytes;` in the namespace lumidex::embedded. Files may be made by the build.
function(embed_files target)
  foreach(file ${ARGN})
    get_filename_component(name ${file} NAME_WE)
    get_filename_component(path ${file} ABSOLUTE)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/embedded/${name}.cpp)
    add_custom_command(OUTPUT ${source}
      COMMAND ${CMAKE_COMMAND} -D INPUT=${path} -D OUTPUT=${source} -D NAME=${name}
        -P ${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake
      DEPENDS ${path} ${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake VERBATIM)
    target_sources(${target} PRIVATE ${source})
  endforeach()
endfunction()
