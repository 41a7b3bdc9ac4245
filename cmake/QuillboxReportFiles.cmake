# What the page of a report loads, made beside the programs: graphs.js is put together from its parts.
# All parts share one scope, so their order is for readers: from texts and numbers up to the page.

set(copied NiceTitle.js NiceTitleAutoWidth.css)
set(QUILLBOX_PAGE_FILES graphs.js ${copied})
list(TRANSFORM QUILLBOX_PAGE_FILES PREPEND "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/")

set(folder "${PROJECT_SOURCE_DIR}/assets/report")
foreach(file ${copied})
  configure_file("${folder}/${file}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${file}" COPYONLY)
endforeach()

set(parts "")
foreach(part texts colours numbers report figures shapes scale columns bars tips values strip legend groups
    lanes window bar_graph)
  set(file "${folder}/graphs/${part}.js")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
  file(READ "${file}" text)
  string(APPEND parts "${text}\n")
endforeach()
configure_file("${folder}/graphs/graphs.js.in" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/graphs.js" @ONLY)
unset(copied)
unset(parts)
unset(folder)
