# Settings that every target of the project shares.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 warns falsely of overlapping copies in "text" + std::string (its bug 105329).
  add_compile_options(-Wno-restrict)
endif()
if(KORVELFILE_WERROR)
  add_compile_options(-Werror)
endif()

# A library's calls of its own functions needn't go by way of the symbol table.
add_compile_options(-fno-semantic-interposition)
add_link_options(-Wl,-Bsymbolic-functions)

# A fused multiply-add rounds once where the source rounds twice: the last digits of a computation
# would hang on the processor it was compiled for.
add_compile_options(-ffp-contract=off)

if(KORVELFILE_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "KORVELFILE_FUZZ needs clang, which brings libFuzzer")
  endif()
  set(KORVELFILE_SANITIZE "address,undefined")
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(KORVELFILE_SANITIZE)
  add_compile_options(-fsanitize=${KORVELFILE_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${KORVELFILE_SANITIZE})
endif()
