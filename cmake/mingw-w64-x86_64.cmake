# Cross-compiling for 64-bit Windows with Debian's mingw-w64 (packages
# g++-mingw-w64-x86-64-posix and mingw-w64-x86-64-dev; scripts/install-deps installs them):
#
#   cmake -S . -B build-windows -G Ninja \
#         -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake \
#         -DWKESTEL_BUILD_GUI=OFF -DWKESTEL_BUILD_BENCH=OFF
#
# The posix thread model is the one whose libstdc++ has std::mutex and std::thread; the win32
# model of GCC 12 lacks them. Programs are linked statically (libgcc, libstdc++, winpthread),
# so that wkestel.exe runs on a bare Windows, or under Wine, without any DLL beside it.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(WKESTEL_MINGW_TRIPLET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${WKESTEL_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${WKESTEL_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${WKESTEL_MINGW_TRIPLET}-windres)

# Libraries and headers come from the mingw-w64 tree only, never from the host's /usr/include.
# The two header-only packages the command line uses are taken from the host on purpose
# (see WkestelHeaderOnlyPackage.cmake); programs such as windres and cpp are the host's.
set(CMAKE_FIND_ROOT_PATH /usr/${WKESTEL_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
