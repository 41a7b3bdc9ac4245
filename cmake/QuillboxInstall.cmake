# What an installed Quillbox consists of: a folder of programs, a folder of what they show and play,
# and the places in which a desktop looks for programs, icons and texts.

set(programs "${QUILLBOX_PROGRAM_FOLDER}")
set(shared "${QUILLBOX_SHARED_FOLDER}")
set(packaging "${PROJECT_SOURCE_DIR}/packaging")
set(man "${CMAKE_INSTALL_MANDIR}/man1")

# quillbox_link(<name> <program>): bin/<name> leads to the program. It finds the files beside it by
# following the link, which a copy would not.
function(quillbox_link name program)
  set(link "${CMAKE_BINARY_DIR}/install/${name}")
  file(RELATIVE_PATH target "/${CMAKE_INSTALL_BINDIR}" "/${QUILLBOX_PROGRAM_FOLDER}/${program}")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/install")
  file(CREATE_LINK "${target}" "${link}" SYMBOLIC)
  install(FILES "${link}" DESTINATION "${CMAKE_INSTALL_BINDIR}")
endfunction()

install(TARGETS quillbox-replay DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/quillbox")
install(FILES "${packaging}/man/quillbox-replay.1" DESTINATION "${man}")
set(completions quillbox-replay)
if(QUILLBOX_NETWORK)
  install(TARGETS dl DESTINATION "${programs}")
  quillbox_link(quillbox-dl dl)
  install(FILES "${packaging}/man/quillbox-dl.1" DESTINATION "${man}")
  list(APPEND completions quillbox-dl)
  if(TARGET demo-service)
    install(TARGETS demo-service DESTINATION "${programs}")
    quillbox_link(quillbox-demo-service demo-service)
    install(FILES "${packaging}/man/quillbox-demo-service.1" DESTINATION "${man}")
  endif()
endif()
foreach(name ${completions})
  install(FILES "${packaging}/completion/${name}.bash"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME "${name}")
  install(FILES "${packaging}/completion/_${name}"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
  install(FILES "${packaging}/completion/${name}.fish"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
endforeach()

if(QUILLBOX_DESKTOP)
  set(assets "${PROJECT_SOURCE_DIR}/assets")
  install(TARGETS quillbox quillbox-sound DESTINATION "${programs}")
  if(TARGET quillbox-report-view)
    install(TARGETS quillbox-report-view DESTINATION "${programs}")
  endif()
  quillbox_link(quillbox quillbox)
  install(FILES "${packaging}/man/quillbox.1" DESTINATION "${man}")

  install(FILES "${assets}/ReadMe.txt" "${assets}/skin/skin.ini" ${QUILLBOX_PAGE_FILES}
    DESTINATION "${shared}")
  install(DIRECTORY "${assets}/sounds/" DESTINATION "${shared}" FILES_MATCHING PATTERN "*.wav")
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/skins" DESTINATION "${shared}" PATTERN "README.md" EXCLUDE)

  set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
  foreach(size 16 22 24 32 48 64 128)
    install(FILES "${assets}/quillbox-${size}.png"
      DESTINATION "${icons}/${size}x${size}/apps" RENAME quillbox.png)
  endforeach()
  install(FILES "${assets}/quillbox.svg" DESTINATION "${icons}/scalable/apps")
  install(FILES "${packaging}/quillbox.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
  set(metainfo "${CMAKE_BINARY_DIR}/install/${QUILLBOX_APPLICATION_ID}.metainfo.xml")
  configure_file("${packaging}/quillbox.metainfo.xml.in" "${metainfo}" @ONLY)
  install(FILES "${metainfo}" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

  find_package(Python3 COMPONENTS Interpreter)
  if(Python3_FOUND)
    set(manual "${CMAKE_BINARY_DIR}/install/manual")
    add_custom_command(OUTPUT "${manual}/index.html"
      COMMAND Python3::Interpreter "${packaging}/make-manual" "${assets}/ReadMe.txt" "${manual}"
      DEPENDS "${packaging}/make-manual" "${assets}/ReadMe.txt" VERBATIM)
    add_custom_target(manual ALL DEPENDS "${manual}/index.html")
    install(DIRECTORY "${manual}" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/quillbox")
  endif()
endif()
