# The options that every target of this project is compiled with, as one interface target.
add_library(quilatador_compiler INTERFACE)

if(MSVC)
  target_compile_options(quilatador_compiler INTERFACE /utf-8 /W4 $<$<BOOL:${QUILATADOR_WERROR}>:/WX>)
else()
  target_compile_options(quilatador_compiler INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${QUILATADOR_WERROR}>:-Werror>
    # Sums of amounts must come out the same on every processor.
    -ffp-contract=off)
endif()

if(QUILATADOR_SANITIZE)
  target_compile_options(quilatador_compiler INTERFACE
    -fsanitize=${QUILATADOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -D_GLIBCXX_ASSERTIONS)
  target_link_options(quilatador_compiler INTERFACE -fsanitize=${QUILATADOR_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The code that sanitizers add hides from the compiler where a variable is set, so that it warns about the standard
    # library.
    target_compile_options(quilatador_compiler INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

if(QUILATADOR_COVERAGE)
  # Counts by conditions of the source, which needs clang: g++ also counts the hidden branches of exceptions.
  target_compile_options(quilatador_compiler INTERFACE -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(quilatador_compiler INTERFACE -fprofile-instr-generate -fcoverage-mapping)
endif()

# quilatador_library(NAME SOURCES...) creates the target quilatador::NAME for one folder below src/.
function(quilatador_library name)
  add_library(quilatador_${name} STATIC ${ARGN})
  add_library(quilatador::${name} ALIAS quilatador_${name})
  target_include_directories(quilatador_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(quilatador_${name} PRIVATE quilatador_compiler)
endfunction()
