# What quillbox.exe carries: its pictures, dialogs, version and manifest.

set(QUILLBOX_PAGE_RESOURCES "")
foreach(page general ad-sense auto-update tray-tooltip sounds internet preview)
  string(APPEND QUILLBOX_PAGE_RESOURCES
    "${page} RCDATA \"${PROJECT_SOURCE_DIR}/assets/pages/${page}-32.png\"\n")
endforeach()
configure_file(windows/quillbox.rc.in "${CMAKE_CURRENT_BINARY_DIR}/quillbox.rc" @ONLY)

enable_language(RC)
set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/quillbox.rc" PROPERTIES OBJECT_DEPENDS
  "${PROJECT_SOURCE_DIR}/hosts/windows_dialogs/dialogs.rc")
add_library(quillbox_resources OBJECT "${CMAKE_CURRENT_BINARY_DIR}/quillbox.rc")
