# Builds for Windows on another system, by mingw-w64. WYNCONFIG_WINDOWS is the processor: x86_64 or
# i686. Test programs run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES WYNCONFIG_WINDOWS)
set(CMAKE_SYSTEM_PROCESSOR ${WYNCONFIG_WINDOWS})
set(triple ${WYNCONFIG_WINDOWS}-w64-mingw32)
# The kind with threads as the C++ library has them.
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)
# The same sources make the same files, whenever that is.
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT -Wl,--no-insert-timestamp)
endforeach()
set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH source)
cmake_path(GET source PARENT_PATH source)
set(CMAKE_CROSSCOMPILING_EMULATOR ${source}/scripts/windows/wine;${WYNCONFIG_WINDOWS})
