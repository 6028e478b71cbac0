# One interface target carries the language level, the warnings and the sanitizers.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_20)
target_include_directories(project_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Wold-style-cast -Wundef)

# GCC 12 reports overlapping and endless copies inside std::string's own functions (its bugs 105651 and 105329), the
# more so where they come from a precompiled header. Real ones are looked for with sanitizers.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(project_options INTERFACE "$<$<CONFIG:Release>:-Wno-restrict;-Wno-stringop-overflow;-Wno-array-bounds>")
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(THREADS_PREFER_PTHREAD_FLAG ON)

# A null pointer meets AddressSanitizer where it is used, and alignment is the decoders' matter: looking for both at
# every access costs a quarter of the compile time, so only the libraries that read files do (sanitize_fully).
if(LUMIDEX_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize=null,alignment -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # There are some hundred programs of 50 MB then, each linked in a third of the time.
  find_program(LUMIDEX_MOLD mold)
  if(LUMIDEX_MOLD)
    add_link_options(-fuse-ld=mold)
  endif()
endif()
if(LUMIDEX_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
else()
  add_compile_options(-fstack-protector-strong)
endif()

# sanitize_fully(<target>): every check, and optimised enough to decode at a bearable speed.
function(sanitize_fully target)
  if(LUMIDEX_SANITIZE)
    target_compile_options(${target} PRIVATE -O1 -fsanitize=null,alignment)
  endif()
endfunction()

# small_code(<target>): of two ways to say the same the shorter one, where speed does not depend on it. GCC then no
# longer sees that what an optional does not hold is not looked at.
function(small_code target)
  target_compile_options(${target} PRIVATE "$<$<CONFIG:Release>:-Os;-Wno-maybe-uninitialized>")
endfunction()

# pack_addresses(<target>): the list of places that hold addresses of the program's own, all of which is read at each
# start, in a hundredth of its size. A C library before 2.36 would not start the program.
include(CheckCXXSourceRuns)
set(CMAKE_REQUIRED_LINK_OPTIONS -Wl,-z,pack-relative-relocs)
check_cxx_source_runs("int value; int* const volatile places[] = {&value, nullptr}; int main() { return *places[0]; }"
  LUMIDEX_PACKS_ADDRESSES)
unset(CMAKE_REQUIRED_LINK_OPTIONS)
function(pack_addresses target)
  if(LUMIDEX_PACKS_ADDRESSES)
    target_link_options(${target} PRIVATE $<$<CONFIG:Release>:-Wl,-z,pack-relative-relocs>)
  endif()
endfunction()
