# How every target of the project is built: C++20, all warnings, one static library a folder.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

add_library(quillbox_options INTERFACE)
target_compile_options(quillbox_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${QUILLBOX_WARNINGS_AS_ERRORS}>:-Werror>
  # GCC 12 sees overlaps in joined texts that aren't there, at -O3.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(QUILLBOX_SANITIZE)
  target_compile_options(quillbox_options INTERFACE
    -fsanitize=${QUILLBOX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quillbox_options INTERFACE -fsanitize=${QUILLBOX_SANITIZE})
endif()

# quillbox_library(<folder name> <include root> [LINKS <target>...])
# One folder is one static library. LINKS is its permission to include: scripts/check-rooms fails
# when a file includes a header of a folder that its links don't name.
function(quillbox_library name root)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  if(sources)
    add_library(${name} STATIC ${sources})
    target_include_directories(${name} PUBLIC "${root}")
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE quillbox_options)
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE "${root}")
    target_link_libraries(${name} INTERFACE ${ARG_LINKS})
  endif()
endfunction()

# quillbox_room(<name> [LINKS ...]): a folder of src/, ISO C++20 alone.
macro(quillbox_room name)
  quillbox_library(${name} "${PROJECT_SOURCE_DIR}/src" ${ARGN})
endmacro()

# quillbox_program_version(<target>): its files know QUILLBOX_VERSION.
function(quillbox_program_version target)
  target_compile_definitions(${target} PRIVATE "QUILLBOX_VERSION=\"${PROJECT_VERSION}\"")
endfunction()

# quillbox_test(<name> SOURCES <file>... [LINKS <target>...] [LABELS <label>...] [SECONDS <number>])
# A GoogleTest program; each runs as one ctest test. Its own files are compiled without optimisation,
# which halves their compile time; what they test is built as ever. SECONDS is about how long a long one takes:
# the longest start first.
function(quillbox_test name)
  cmake_parse_arguments(ARG "" "SECONDS" "SOURCES;LINKS;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} GTest::gmock_main quillbox_options)
  target_compile_options(${name} PRIVATE -O0 -g1)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}" TIMEOUT 300)
  if(ARG_SECONDS)
    set_tests_properties(${name} PROPERTIES COST ${ARG_SECONDS})
  endif()
endfunction()
