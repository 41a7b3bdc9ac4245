# Builds for Windows with Debian's mingw-w64; tests run in Wine. Nothing of /usr/include or /usr/lib may
# reach this compiler: libraries of headers alone are linked one by one.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# One file a program: no library beside it but the system's own. Sections lie in the file as they lie
# in memory, so that every loader can map them: Wine's copies them otherwise.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--file-alignment,4096")
set(CMAKE_EXE_LINKER_FLAGS_MINSIZEREL_INIT "-s")

# Libraries that are headers alone, each by a link of its own.
list(APPEND CMAKE_MODULE_PATH "${CMAKE_CURRENT_LIST_DIR}")
set(QUILLBOX_HEADER_LIBRARIES "${CMAKE_BINARY_DIR}/header-libraries")
foreach(library CLI rapidjson nlohmann)
  if(NOT EXISTS "${QUILLBOX_HEADER_LIBRARIES}/${library}")
    file(MAKE_DIRECTORY "${QUILLBOX_HEADER_LIBRARIES}")
    file(CREATE_LINK "/usr/include/${library}" "${QUILLBOX_HEADER_LIBRARIES}/${library}" SYMBOLIC)
  endif()
endforeach()
