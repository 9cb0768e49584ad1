# What is installed, by the components runtime, runtime_qt, runtime_database, python, development, sample
# and tools; the last two by the folders that make them.
include(CMakePackageConfigHelpers)
set(config_folder ${CMAKE_INSTALL_LIBDIR}/cmake/wynconfig)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# What pkg-config adds for an archive.
set(private_modules expat)
if(NOT WIN32)
  string(APPEND private_modules " icu-uc icu-i18n")
endif()

# A library, with the files by which CMake and pkg-config find it.
function(wynconfig_install target component)
  install(TARGETS ${target} EXPORT ${target}Targets
    LIBRARY COMPONENT ${component} NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development)
  install(EXPORT ${target}Targets NAMESPACE wynconfig:: DESTINATION ${config_folder}
    COMPONENT development)
  # Relative, so that an installation can be moved.
  file(RELATIVE_PATH prefix /${pkgconfig_folder} /)
  string(REGEX REPLACE "/$" "" prefix "${prefix}")
  string(REPLACE "_" "-" name ${target})
  configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc DESTINATION ${pkgconfig_folder}
    COMPONENT development)
endfunction()

wynconfig_install(wynconfig runtime)
set(headers_left_out "")
if(with_qt)
  wynconfig_install(wynconfig_qt runtime_qt)
else()
  list(APPEND headers_left_out PATTERN qt_view.h EXCLUDE)
endif()
if(NOT TARGET wynconfig_win32)
  list(APPEND headers_left_out PATTERN win32_view.h EXCLUDE)
endif()
if(with_database)
  wynconfig_install(wynconfig_database runtime_database)
else()
  list(APPEND headers_left_out PATTERN database.h EXCLUDE PATTERN memory_sessions.h EXCLUDE)
endif()
install(DIRECTORY include/wynconfig TYPE INCLUDE COMPONENT development ${headers_left_out})
configure_package_config_file(cmake/wynconfigConfig.cmake.in wynconfigConfig.cmake
  INSTALL_DESTINATION ${config_folder} PATH_VARS CMAKE_INSTALL_DATADIR)
write_basic_package_version_file(wynconfigConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/wynconfigConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/wynconfigConfigVersion.cmake
        DESTINATION ${config_folder} COMPONENT development)
install(FILES docs/dataset.xsd TYPE DATA RENAME wynconfig/dataset.xsd COMPONENT development)
install(DIRECTORY examples TYPE DOC COMPONENT development)
install(FILES LICENSE TYPE DOC COMPONENT runtime)
install(FILES README.md CHANGELOG.md TYPE DOC COMPONENT development)
install(DIRECTORY docs TYPE DOC COMPONENT development
  FILES_MATCHING PATTERN *.md PATTERN dataset.xsd PATTERN pictures EXCLUDE)

# The Python module, which needs shared libraries. Where a distribution's own Python looks is a part
# of that distribution: elsewhere a wheel does better, see docs/python.md.
set(WYNCONFIG_PYTHON_FOLDER lib/python3/dist-packages CACHE STRING
    "Where the Python module is installed; empty: nowhere")
if(BUILD_SHARED_LIBS AND UNIX AND WYNCONFIG_PYTHON_FOLDER)
  install(DIRECTORY bindings/python/wynconfig DESTINATION ${WYNCONFIG_PYTHON_FOLDER} COMPONENT python
    PATTERN __pycache__ EXCLUDE)
  # By which Python's own tools know that it is there.
  file(CONFIGURE OUTPUT METADATA CONTENT "Metadata-Version: 2.1\nName: wynconfig\nVersion: @PROJECT_VERSION@\n")
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/METADATA COMPONENT python
    DESTINATION ${WYNCONFIG_PYTHON_FOLDER}/wynconfig-${PROJECT_VERSION}.dist-info)
endif()
