# render_drawing(<drawing> <picture> <width>): the build renders artwork/<drawing>.svg, so many pixels wide, into the PNG
# file <picture>, an absolute path.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
function(render_drawing drawing picture width)
  get_filename_component(folder ${picture} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  set(source ${CMAKE_SOURCE_DIR}/artwork/${drawing}.svg)
  add_custom_command(OUTPUT ${picture}
    COMMAND ${RSVG_CONVERT} --width ${width} --keep-aspect-ratio --output ${picture} ${source}
    DEPENDS ${source} VERBATIM)
endfunction()
