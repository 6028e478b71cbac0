# embed_files(<target> <file>...): compiles the bytes of files into the target. A file a/b.png is defined as
# `extern const std::span<const std::uint8_t> bBytes;` in the namespace lumidex::embedded.
function(embed_files target)
  foreach(file ${ARGN})
    get_filename_component(name ${file} NAME_WE)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/embedded/${name}.cpp)
    add_custom_command(OUTPUT ${source}
      COMMAND ${CMAKE_COMMAND} -D INPUT=${CMAKE_CURRENT_SOURCE_DIR}/${file} -D OUTPUT=${source} -D NAME=${name}
        -P ${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake
      DEPENDS ${file} ${CMAKE_SOURCE_DIR}/cmake/EmbedFile.cmake VERBATIM)
    target_sources(${target} PRIVATE ${source})
  endforeach()
endfunction()
