# Cross-building for Windows with MinGW-w64. MINGW_ARCH is i686 (32 bits) or x86_64 (64 bits).
set(CMAKE_SYSTEM_NAME Windows)
if(NOT MINGW_ARCH)
  set(MINGW_ARCH i686)
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MINGW_ARCH)
set(CMAKE_SYSTEM_PROCESSOR ${MINGW_ARCH})

# By their full names: those without the suffix have no std::mutex and std::thread.
set(MINGW_PREFIX ${MINGW_ARCH}-w64-mingw32)
set(CMAKE_C_COMPILER ${MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_PREFIX}-windres)
set(WIDL ${MINGW_PREFIX}-widl CACHE STRING "The compiler of interface definitions")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)

# Numbers come out the same in 32 bits as in 64: not with the 80-bit registers of the x87.
if(MINGW_ARCH STREQUAL i686)
  set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
  set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse")
endif()
# The run-time libraries of the compiler stand on no user's machine.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine.sh)
