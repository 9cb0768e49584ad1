# Installs the component afresh, and looks at what went there.
#   cmake -DBUILD=<build folder> -DPREFIX=<folder> -P install.cmake
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
                OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB include_folders RELATIVE ${PREFIX}/include ${PREFIX}/include/*)
if(NOT include_folders STREQUAL "wynconfig")
  message(FATAL_ERROR "the installation has headers of its own beside include/wynconfig: "
                      "${include_folders}")
endif()
