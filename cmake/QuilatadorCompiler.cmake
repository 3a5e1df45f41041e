# What every target of ours is compiled with, as one interface target.
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
    # What the sanitizers add keeps the compiler from seeing what is set where: it then warns of the standard library.
    target_compile_options(quilatador_compiler INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

if(QUILATADOR_COVERAGE)
  # By conditions of the source (clang): g++ counts the hidden branches of exceptions too.
  target_compile_options(quilatador_compiler INTERFACE -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(quilatador_compiler INTERFACE -fprofile-instr-generate -fcoverage-mapping)
endif()

# quilatador_library(NAME SOURCES... ) makes the target quilatador::NAME of one folder below src/.
function(quilatador_library name)
  add_library(quilatador_${name} STATIC ${ARGN})
  add_library(quilatador::${name} ALIAS quilatador_${name})
  target_include_directories(quilatador_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(quilatador_${name} PRIVATE quilatador_compiler)
endfunction()
