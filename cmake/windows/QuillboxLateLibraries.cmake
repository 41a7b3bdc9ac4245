# quillbox_link_late(<target> <library> <function>...): a library of the system's that most runs never
# need is loaded when one of these functions is called for the first time. A function that is not
# named fails to link.
function(quillbox_link_late target library)
  list(JOIN ARGN "\n" functions)
  set(base "${CMAKE_CURRENT_BINARY_DIR}/${library}")
  file(CONFIGURE OUTPUT "${base}.def" CONTENT "LIBRARY ${library}.dll\nEXPORTS\n${functions}\n")
  add_custom_command(OUTPUT "${base}_late.a" DEPENDS "${base}.def" VERBATIM
    COMMAND "${CMAKE_DLLTOOL}" --input-def "${base}.def" --output-delaylib "${base}_late.a"
      --temp-prefix "${library}")
  add_custom_target(${library}_late DEPENDS "${base}_late.a")
  add_dependencies(${target} ${library}_late)
  target_link_libraries(${target} PUBLIC "${base}_late.a" delayimp)
endfunction()
