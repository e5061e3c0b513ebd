# Toolchain: 64-bit Windows programs, made by MinGW-w64 with POSIX threads.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)
set(CMAKE_AR ${triplet}-ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${triplet}-ranlib CACHE FILEPATH "")

# Libraries and headers come from here and from CMAKE_PREFIX_PATH, never from the host.
set(CMAKE_FIND_ROOT_PATH /usr/${triplet} ${LM_WINDOWS_ROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES LM_WINDOWS_ROOT)

# Tools built on the way (embed-files, make-blank-forms) run under Wine. They need the compiler's
# own DLLs, which WINEPATH tells in Windows' spelling.
find_program(WINE NAMES wine64 wine PATHS /usr/lib/wine)
if(WINE)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libstdc++-6.dll
                  OUTPUT_VARIABLE runtime OUTPUT_STRIP_TRAILING_WHITESPACE)
  get_filename_component(runtime ${runtime} DIRECTORY)
  set(CMAKE_CROSSCOMPILING_EMULATOR
      env WINEDEBUG=-all "WINEPATH=Z:${runtime}\\;Z:/usr/${triplet}/lib" ${WINE})
endif()
