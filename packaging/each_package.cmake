# The archive contains an application folder, the Debian package what "cmake --install" installs.
if(CPACK_GENERATOR STREQUAL "TGZ")
  set(CPACK_INSTALL_CMAKE_PROJECTS "${CPACK_BUILD_DIRECTORY};zol-injection;portable;/")
  set(CPACK_PACKAGE_FILE_NAME "zol-injection-${CPACK_PACKAGE_VERSION}")
else()
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
endif()
