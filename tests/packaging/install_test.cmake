# Installs the build, and looks whether all is where the program and the desktop look for it.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

set(expected
  ${PROGRAMS}/dl ${PROGRAMS}/quillbox ${PROGRAMS}/quillbox-sound ${SHARED}/graphs.js ${SHARED}/NiceTitle.js
  ${SHARED}/NiceTitleAutoWidth.css ${SHARED}/ReadMe.txt ${SHARED}/skin.ini
  ${SHARED}/Downloaded.wav ${SHARED}/skins/dark/skin.ini ${SHARED}/skins/paper/Skin.gif
  ${BIN}/quillbox-replay ${DATA}/applications/quillbox.desktop
  ${DATA}/icons/hicolor/48x48/apps/quillbox.png ${DATA}/icons/hicolor/scalable/apps/quillbox.svg
  ${DATA}/doc/quillbox/manual/index.html ${DATA}/man/man1/quillbox.1)
foreach(file ${expected})
  if(NOT EXISTS "${PREFIX}/${file}")
    message(SEND_ERROR "not installed: ${file}")
  endif()
endforeach()

# A program finds its folder by following the link.
foreach(pair quillbox=quillbox quillbox-dl=dl quillbox-demo-service=demo-service)
  string(REPLACE "=" ";" pair ${pair})
  list(POP_FRONT pair link name)
  file(REAL_PATH "${PREFIX}/${BIN}/${link}" program)
  file(REAL_PATH "${PREFIX}/${PROGRAMS}/${name}" wanted)
  if(NOT program STREQUAL wanted)
    message(SEND_ERROR "${BIN}/${link} leads to ${program}")
  endif()
endforeach()

# Pictures and links of the manual lead somewhere.
set(manual "${PREFIX}/${DATA}/doc/quillbox/manual")
file(READ "${manual}/index.html" page)
string(REGEX MATCHALL "src=\"[^\"]*\"" pictures "${page}")
list(LENGTH pictures count)
if(count LESS 10)
  message(SEND_ERROR "the manual shows ${count} pictures")
endif()
foreach(picture ${pictures})
  string(REGEX REPLACE "src=\"(.*)\"" "\\1" picture "${picture}")
  if(NOT EXISTS "${manual}/${picture}")
    message(SEND_ERROR "the manual has no ${picture}")
  endif()
endforeach()
string(REGEX MATCHALL "href=\"#[^\"]*\"" links "${page}")
foreach(link ${links})
  string(REGEX REPLACE "href=\"#(.*)\"" "id=\"\\1\"" target "${link}")
  string(FIND "${page}" "${target}" found)
  if(found EQUAL -1)
    message(SEND_ERROR "the manual has no ${target}")
  endif()
endforeach()
