# Installing polyarc, and its Debian packages (cpack -G DEB): the run-time
# library, the development files (headers, CMake package, pkg-config file)
# and the program, each as its own component.
include(CMakePackageConfigHelpers)

set(POLYARC_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/polyarc)
set(POLYARC_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS polyarc EXPORT polyarcTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
install(DIRECTORY include/polyarc DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT Development)
install(EXPORT polyarcTargets NAMESPACE polyarc:: DESTINATION ${POLYARC_CMAKE_DIR}
  COMPONENT Development)
file(WRITE ${PROJECT_BINARY_DIR}/polyarcConfig.cmake
  "include(\"\${CMAKE_CURRENT_LIST_DIR}/polyarcTargets.cmake\")\n")
write_basic_package_version_file(${PROJECT_BINARY_DIR}/polyarcConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/polyarcConfig.cmake ${PROJECT_BINARY_DIR}/polyarcConfigVersion.cmake
  DESTINATION ${POLYARC_CMAKE_DIR} COMPONENT Development)

# The pkg-config file finds the prefix from its own place, so that an
# installation or package can be moved (pkg-config sets pcfiledir).
file(RELATIVE_PATH POLYARC_PC_TO_PREFIX /${POLYARC_PKGCONFIG_DIR} /)
string(REGEX REPLACE "/$" "" POLYARC_PC_TO_PREFIX "${POLYARC_PC_TO_PREFIX}")
foreach(dir LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
    set(POLYARC_PC_${dir} "${CMAKE_INSTALL_${dir}}")
  else()
    set(POLYARC_PC_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
  endif()
endforeach()
configure_file(cmake/polyarc.pc.in ${PROJECT_BINARY_DIR}/polyarc.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/polyarc.pc DESTINATION ${POLYARC_PKGCONFIG_DIR}
  COMPONENT Development)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/polyarc COMPONENT Runtime)

# ---- Debian packages ----------------------------------------------------------
set(CPACK_PACKAGE_NAME polyarc)
set(CPACK_PACKAGE_VENDOR "The polyarc authors")
set(CPACK_PACKAGE_CONTACT "The polyarc authors")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL Runtime Development)
if(TARGET polyarc_cli)
  list(APPEND CPACK_COMPONENTS_ALL Tools)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libpolyarc${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libpolyarc-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME polyarc)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION science)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "polyarc shared library: planar contours of lines and arcs")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "polyarc development files: headers, CMake package and pkg-config file")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "polyarc program: measures and pictures of contour files")
if(BUILD_SHARED_LIBS)
  set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS Runtime)
  set(CPACK_COMPONENT_TOOLS_DEPENDS Runtime)
endif()
# The dependencies on libc and libstdc++ come from dpkg-shlibdeps when it
# is there: of the shared library, or of the program that holds the static
# one.
find_program(POLYARC_DPKG_SHLIBDEPS dpkg-shlibdeps)
if(POLYARC_DPKG_SHLIBDEPS AND BUILD_SHARED_LIBS)
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
elseif(POLYARC_DPKG_SHLIBDEPS)
  set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)
endif()
include(CPack)
