# Header-only packages of the host (Debian's libcli11-dev and nlohmann-json3-dev) in any build.
#
# A native build finds them through their CMake package files. A cross build for Windows cannot:
# those files point at /usr/include, and putting the host's /usr/include on the cross compiler's
# path would hide the Windows C library behind glibc's headers. Headers that need nothing but
# the C++ standard library work for any target, so the cross build makes the package's own
# header folder (and nothing else of /usr/include) visible through a link in the build tree,
# behind the same imported target a native build gets.

# wk_header_only_package(<package> TARGET <imported target> HEADER <path under include/>)
function(wk_header_only_package package)
  cmake_parse_arguments(ARG "" "TARGET;HEADER" "" ${ARGN})
  if(TARGET ${ARG_TARGET})
    return()
  endif()
  if(NOT CMAKE_CROSSCOMPILING)
    find_package(${package} CONFIG REQUIRED)
    return()
  endif()

  find_path(WKESTEL_HOST_INCLUDE_${package} ${ARG_HEADER}
    PATHS /usr/include /usr/local/include
    NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
  set(host_include ${WKESTEL_HOST_INCLUDE_${package}})
  if(NOT host_include)
    message(FATAL_ERROR "The cross build needs the host's ${package} headers (${ARG_HEADER}); "
                        "scripts/install-deps installs them.")
  endif()
  string(REGEX MATCH "^[^/]+" top_folder "${ARG_HEADER}")
  set(staged ${CMAKE_BINARY_DIR}/host-headers/${package})
  file(MAKE_DIRECTORY ${staged})
  file(CREATE_LINK ${host_include}/${top_folder} ${staged}/${top_folder} SYMBOLIC)
  add_library(${ARG_TARGET} INTERFACE IMPORTED GLOBAL)
  set_target_properties(${ARG_TARGET} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${staged})
endfunction()
