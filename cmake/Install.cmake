# What `cmake --install` puts where; the program is installed by its own folder. The result can be moved:
# every path in it is relative to the file that holds it.
set(ZEAPI_PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/zeapi)

install(FILES include/zeapi.h TYPE INCLUDE)
install(FILES bindings/python/zeapi.py DESTINATION ${CMAKE_INSTALL_DATADIR}/zeapi/bindings/python)
install(FILES bindings/csharp/Zeapi.cs DESTINATION ${CMAKE_INSTALL_DATADIR}/zeapi/bindings/csharp)
install(TARGETS zeapi_shared EXPORT zeapiTargets)
if(WIN32)
  install(FILES ${PROJECT_BINARY_DIR}/lib/ZEAPI1TD.def TYPE LIB)
  install(FILES ${PROJECT_BINARY_DIR}/lib/ZEAPI1TD.lib TYPE LIB OPTIONAL)
else()
  install(TARGETS zeapi_static EXPORT zeapiTargets)
endif()
if(ZEAPI_MAN_PAGE)
  install(FILES ${ZEAPI_MAN_PAGE} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
install(EXPORT zeapiTargets NAMESPACE zeapi:: DESTINATION ${ZEAPI_PACKAGE_FOLDER})
configure_package_config_file(cmake/zeapiConfig.cmake.in zeapiConfig.cmake
  INSTALL_DESTINATION ${ZEAPI_PACKAGE_FOLDER}
  PATH_VARS CMAKE_INSTALL_LIBDIR)
write_basic_package_version_file(zeapiConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/zeapiConfig.cmake ${PROJECT_BINARY_DIR}/zeapiConfigVersion.cmake
  DESTINATION ${ZEAPI_PACKAGE_FOLDER})

install(FILES README.md CHANGELOG.md SECURITY.md TYPE DOC)
install(DIRECTORY docs examples TYPE DOC PATTERN Doxyfile EXCLUDE)

# pkg-config. A static link of the library needs the C++ runtime and what the platform part uses.
set(ZEAPI_PC_FOLDER ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH ZEAPI_PC_PREFIX ${ZEAPI_PC_FOLDER} ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" ZEAPI_PC_PREFIX "${ZEAPI_PC_PREFIX}")
file(RELATIVE_PATH ZEAPI_PC_LIB ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH ZEAPI_PC_INCLUDE ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
if(WIN32)
  set(ZEAPI_PC_NAME ZEAPI1TD)
  set(ZEAPI_PC_PRIVATE)
else()
  set(ZEAPI_PC_NAME zeapi)
  set(ZEAPI_PC_PRIVATE "-lstdc++ -lm")
  if(CUPS_LIBRARY AND CUPS_INCLUDE_DIR)
    string(PREPEND ZEAPI_PC_PRIVATE "-lcups ")
  endif()
endif()
configure_file(cmake/zeapi.pc.in zeapi.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zeapi.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
