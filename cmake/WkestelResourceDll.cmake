# Language libraries: resource-only Windows DLLs built from .rc string tables.
#
# windres compiles the .rc to a COFF object (it needs a C preprocessor: without the cross
# gcc the host's cpp does the job), and the cross ld links it into a DLL with no code, no
# entry point and no symbols. The i686 tools give the 32-bit libraries the measuring
# application's own are; x86_64 gives a 64-bit one.

find_program(WKESTEL_RC_PREPROCESSOR NAMES cpp)

# wk_add_resource_dll(TARGET <target> RC <file.rc> OUTPUT <file.dll> [ARCH i686|x86_64])
function(wk_add_resource_dll)
  cmake_parse_arguments(ARG "" "TARGET;RC;OUTPUT;ARCH" "" ${ARGN})
  if(NOT ARG_ARCH)
    set(ARG_ARCH i686)
  endif()
  string(TOUPPER "${ARG_ARCH}" arch_var)
  find_program(WKESTEL_WINDRES_${arch_var} ${ARG_ARCH}-w64-mingw32-windres)
  find_program(WKESTEL_LD_${arch_var} ${ARG_ARCH}-w64-mingw32-ld)
  set(windres ${WKESTEL_WINDRES_${arch_var}})
  set(ld ${WKESTEL_LD_${arch_var}})
  if(NOT windres OR NOT ld OR NOT WKESTEL_RC_PREPROCESSOR)
    message(FATAL_ERROR
      "Building ${ARG_OUTPUT} needs ${ARG_ARCH}-w64-mingw32-windres, ${ARG_ARCH}-w64-mingw32-ld "
      "(Debian: binutils-mingw-w64-${ARG_ARCH}) and cpp; scripts/install-deps installs them.")
  endif()

  get_filename_component(rc_dir ${ARG_RC} DIRECTORY)
  get_filename_component(out_name ${ARG_OUTPUT} NAME_WE)
  set(obj ${CMAKE_CURRENT_BINARY_DIR}/${ARG_TARGET}_${out_name}.res.o)
  add_custom_command(
    OUTPUT ${obj}
    COMMAND ${windres} --preprocessor=${WKESTEL_RC_PREPROCESSOR} --include-dir=${rc_dir}
            -i ${ARG_RC} -o ${obj} -O coff
    DEPENDS ${ARG_RC}
    COMMENT "Compiling resources ${ARG_RC}"
    VERBATIM)
  add_custom_command(
    OUTPUT ${ARG_OUTPUT}
    COMMAND ${ld} -shared -e 0 --strip-all -o ${ARG_OUTPUT} ${obj}
    DEPENDS ${obj}
    COMMENT "Linking resource library ${ARG_OUTPUT}"
    VERBATIM)
  add_custom_target(${ARG_TARGET} ALL DEPENDS ${ARG_OUTPUT})
endfunction()
