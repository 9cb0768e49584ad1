# Checks that a program needs no library of Qt.
#   cmake -DPROGRAM=<file> -P no_qt.cmake
file(GET_RUNTIME_DEPENDENCIES EXECUTABLES ${PROGRAM}
     RESOLVED_DEPENDENCIES_VAR found UNRESOLVED_DEPENDENCIES_VAR missing)
list(LENGTH found count)
if(count EQUAL 0 OR missing)
  message(FATAL_ERROR "the libraries of ${PROGRAM} can't be told: ${missing}")
endif()
list(FILTER found INCLUDE REGEX "[Qq]t")
if(found)
  message(FATAL_ERROR "${PROGRAM} needs ${found}")
endif()
