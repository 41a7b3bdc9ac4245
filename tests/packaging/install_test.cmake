# Installs the build, and looks whether all is where the program and the desktop look for it.
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

set(expected
  ${FOLDER}/dl ${FOLDER}/quillbox ${FOLDER}/quillbox-sound ${FOLDER}/graphs.js ${FOLDER}/NiceTitle.js
  ${FOLDER}/NiceTitleAutoWidth.css ${FOLDER}/ReadMe.txt ${FOLDER}/skin.ini
  ${FOLDER}/Downloaded.wav ${FOLDER}/skins/dark/skin.ini ${FOLDER}/skins/paper/Skin.gif
  ${BIN}/quillbox-replay ${DATA}/applications/quillbox.desktop
  ${DATA}/icons/hicolor/48x48/apps/quillbox.png ${DATA}/icons/hicolor/scalable/apps/quillbox.svg)
foreach(file ${expected})
  if(NOT EXISTS "${PREFIX}/${file}")
    message(SEND_ERROR "not installed: ${file}")
  endif()
endforeach()

# The program finds its folder by following the link.
file(REAL_PATH "${PREFIX}/${BIN}/quillbox" program)
file(REAL_PATH "${PREFIX}/${FOLDER}/quillbox" wanted)
if(NOT program STREQUAL wanted)
  message(SEND_ERROR "${BIN}/quillbox leads to ${program}")
endif()
