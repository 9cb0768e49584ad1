# The Debian packages: `cmake --preset package`, build it, and `cpack` in its folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME wynconfig)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "the WYNConfig authors")
set(CPACK_PACKAGE_CONTACT "the WYNConfig authors <authors@wynconfig.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/src)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

configure_file(cmake/debian_changelog.in debian_changelog @ONLY)
find_program(GZIP gzip)

# A package of one component.
#   section, depends: as Debian takes them
#   summary: of its description, in one line
#   text: the rest of it, in lines of at most 79 characters
macro(wynconfig_package component name section depends summary text)
  string(TOUPPER ${component} upper)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${depends}")
  set(CPACK_COMPONENT_${upper}_DESCRIPTION "${summary}\n${what}\n${text}")
  # What Debian wants to find of each package; other installations have none of it.
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr" AND GZIP)
    execute_process(COMMAND ${GZIP} --best --no-name --stdout debian_changelog
      WORKING_DIRECTORY ${PROJECT_BINARY_DIR} OUTPUT_FILE changelog.gz)
    install(FILES ${PROJECT_BINARY_DIR}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
      COMPONENT ${component})
    install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} RENAME copyright
      COMPONENT ${component})
  endif()
endmacro()

set(what "The component edits and stores how a parts catalogue hands its parts lists
over: which program is launched, how its window is found, in which order the
list goes, which file is written.")
set(exactly "(= ${CPACK_PACKAGE_VERSION})")
# A library tells the linker of a running system.
file(WRITE ${PROJECT_BINARY_DIR}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
set(CPACK_DEBIAN_RUNTIME_QT_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
set(CPACK_DEBIAN_RUNTIME_DATABASE_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/triggers)
set(CPACK_COMPONENTS_ALL)
wynconfig_package(runtime libwynconfig0 libs ""
  "Parts lists on their way out of a catalogue: the component"
  "This package has the library and its texts.")
set(for_development "libwynconfig0 ${exactly}")
if(with_qt)
  wynconfig_package(runtime_qt libwynconfig-qt0 libs "libwynconfig0 ${exactly}"
    "Parts lists on their way out of a catalogue: the desktop view"
    "This package has the dialogs in real windows, on Qt.")
  string(APPEND for_development ", libwynconfig-qt0 ${exactly}")
endif()
if(with_database)
  # Qt finds its drivers when it runs: no library says that they are needed.
  wynconfig_package(runtime_database libwynconfig-database0 libs
    "libwynconfig0 ${exactly}, libqt6sql6-sqlite"
    "Parts lists on their way out of a catalogue: store in a database"
    "This package keeps sessions and part formats in SQLite or PostgreSQL.")
  set(CPACK_DEBIAN_RUNTIME_DATABASE_PACKAGE_RECOMMENDS libqt6sql6-psql)
  string(APPEND for_development ", libwynconfig-database0 ${exactly}")
endif()
if(with_host)
  wynconfig_package(sample wynconfig-sample misc
    "libwynconfig-qt0 ${exactly}, libwynconfig-database0 ${exactly}"
    "Parts lists on their way out of a catalogue: a sample catalogue"
    "This package has a small catalogue to try it with.")
endif()
if(with_tools)
  set(for_tools "libwynconfig0 ${exactly}")
  if(with_database)
    string(APPEND for_tools ", libwynconfig-database0 ${exactly}")
  endif()
  wynconfig_package(tools wynconfig-tools utils "${for_tools}"
    "Parts lists on their way out of a catalogue: administration"
    "This package has a program that lists, checks and changes what is stored,\nwithout a window.")
endif()
if(BUILD_SHARED_LIBS AND UNIX AND WYNCONFIG_PYTHON_FOLDER)
  wynconfig_package(python python3-wynconfig python
    "python3:any (>= 3.11), libwynconfig0 ${exactly}"
    "Parts lists on their way out of a catalogue: Python module"
    "This package has the module for hosts in Python.")
  set(CPACK_DEBIAN_PYTHON_PACKAGE_ARCHITECTURE all)
  if(with_qt)
    set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS "libwynconfig-qt0 ${exactly}")
  endif()
  set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/cmake/python_package/postinst
    ${PROJECT_SOURCE_DIR}/cmake/python_package/prerm)
endif()
wynconfig_package(development libwynconfig-dev libdevel "${for_development}"
  "Parts lists on their way out of a catalogue: headers"
  "This package has what a host is built with.")
include(CPack)
