# The library as it is given away: stripped, under the name that a client of its interface expects. Installing copies
# that file, and the package for the installer of today's clients holds it.

set(KELVOR_DELIVERED_NAME kelvor.so)
if(KELVOR_HOST_INTERFACE EQUAL 26)
  set(KELVOR_DELIVERED_NAME kelvor_linux_amd64.so)
endif()
set(packageRoot ${CMAKE_BINARY_DIR}/package)
set(KELVOR_DELIVERED ${packageRoot}/plugins/${KELVOR_DELIVERED_NAME})

add_custom_command(OUTPUT ${KELVOR_DELIVERED}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${packageRoot}/plugins
  COMMAND ${CMAKE_STRIP} -o ${KELVOR_DELIVERED} $<TARGET_FILE:kelvor>
  DEPENDS kelvor
  COMMENT "Stripping ${KELVOR_DELIVERED_NAME}"
  VERBATIM)
add_custom_target(delivered ALL DEPENDS ${KELVOR_DELIVERED})

install(PROGRAMS ${KELVOR_DELIVERED} DESTINATION plugins)

if(KELVOR_HOST_INTERFACE EQUAL 26)
  set(KELVOR_PACKAGE ${CMAKE_BINARY_DIR}/kelvor-${PROJECT_VERSION}.ts3_plugin)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/package.ini.in ${packageRoot}/package.ini @ONLY)
  # The format zip deflates. The library is named, not its directory, which would become an entry of its own.
  add_custom_command(OUTPUT ${KELVOR_PACKAGE}
    COMMAND ${CMAKE_COMMAND} -E tar cf ${KELVOR_PACKAGE} --format=zip package.ini plugins/${KELVOR_DELIVERED_NAME}
    DEPENDS ${KELVOR_DELIVERED} ${packageRoot}/package.ini
    WORKING_DIRECTORY ${packageRoot}
    COMMENT "Packing kelvor-${PROJECT_VERSION}.ts3_plugin"
    VERBATIM)
  add_custom_target(package DEPENDS ${KELVOR_PACKAGE})
  add_dependencies(package delivered)
else()
  add_custom_target(package
    COMMAND ${CMAKE_COMMAND} -E echo "Packages are for clients of interface 26: use the preset client26"
    COMMAND ${CMAKE_COMMAND} -E false
    VERBATIM)
endif()
