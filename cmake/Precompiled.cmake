# Headers that nearly every file of a kind includes are compiled once for all of that kind: they are half of what
# compiling a file costs. What is built on its own and rarely changes goes without.
set(standard_headers <algorithm> <array> <cmath> <cstdint> <functional> <map> <memory> <optional> <span> <string>
  <string_view> <utility> <vector>)

# precompile(<target> [<headers>...]): with the standard library's headers and these.
function(precompile target)
  target_precompile_headers(${target} PRIVATE ${standard_headers} ${ARGN})
  # The compiler cache needs it to see what a precompiled header held.
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()

# precompile_as(<target> <other>): with those of another target, whose compile options must be the same.
function(precompile_as target other)
  target_precompile_headers(${target} REUSE_FROM ${other})
  target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endfunction()
