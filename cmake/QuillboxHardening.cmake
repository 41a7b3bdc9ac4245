# What a build for other people's machines has: attacks on faults in memory are made hard, and no
# path of the machine that built it is left in the programs.

include(CheckCXXCompilerFlag)

target_compile_options(quillbox_options INTERFACE
  $<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)

if(QUILLBOX_HARDENING)
  # -fPIC, not -fPIE: Qt's own flag for those who use it is -fPIC, and the later of the two wins.
  check_cxx_compiler_flag(-fcf-protection quillbox_has_cf_protection)  # on x86 alone
  target_compile_options(quillbox_options INTERFACE
    -fPIC -fstack-protector-strong -fstack-clash-protection -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2
    $<$<BOOL:${quillbox_has_cf_protection}>:-fcf-protection>)
  target_link_options(quillbox_options INTERFACE -pie -Wl,-z,relro -Wl,-z,now)
endif()
