# What an installed Quillbox consists of: one folder with the program and all that lies beside it, and
# the places in which a desktop looks for programs and icons.

include(GNUInstallDirs)
set(QUILLBOX_PROGRAM_FOLDER "lib/quillbox" CACHE STRING
  "Folder of the program and the files beside it, below the install prefix")

install(TARGETS quillbox-replay DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/quillbox")
if(QUILLBOX_NETWORK)
  install(TARGETS dl DESTINATION "${QUILLBOX_PROGRAM_FOLDER}")
endif()

if(QUILLBOX_DESKTOP)
  install(TARGETS quillbox quillbox-sound DESTINATION "${QUILLBOX_PROGRAM_FOLDER}")
  set(assets "${PROJECT_SOURCE_DIR}/assets")
  if(TARGET quillbox-report-view)
    install(TARGETS quillbox-report-view DESTINATION "${QUILLBOX_PROGRAM_FOLDER}")
  endif()
  install(FILES "${assets}/ReadMe.txt" "${assets}/skin/skin.ini" ${QUILLBOX_PAGE_FILES}
    DESTINATION "${QUILLBOX_PROGRAM_FOLDER}")
  install(DIRECTORY "${assets}/sounds/" DESTINATION "${QUILLBOX_PROGRAM_FOLDER}"
    FILES_MATCHING PATTERN "*.wav")
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/skins" DESTINATION "${QUILLBOX_PROGRAM_FOLDER}"
    PATTERN "README.md" EXCLUDE)

  # The program looks beside itself; a link leads there, and a copy would not.
  set(link "${CMAKE_BINARY_DIR}/install/quillbox")
  file(RELATIVE_PATH program
    "/${CMAKE_INSTALL_BINDIR}" "/${QUILLBOX_PROGRAM_FOLDER}/quillbox")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/install")
  file(CREATE_LINK "${program}" "${link}" SYMBOLIC)
  install(FILES "${link}" DESTINATION "${CMAKE_INSTALL_BINDIR}")

  set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
  foreach(size 16 22 24 32 48 64 128)
    install(FILES "${assets}/quillbox-${size}.png"
      DESTINATION "${icons}/${size}x${size}/apps" RENAME quillbox.png)
  endforeach()
  install(FILES "${assets}/quillbox.svg" DESTINATION "${icons}/scalable/apps")
  install(FILES "${PROJECT_SOURCE_DIR}/packaging/quillbox.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
endif()
