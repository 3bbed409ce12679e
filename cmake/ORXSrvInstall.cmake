# Install rules: headers, the shared libraries and a CMake package, so that a consumer writes
#   find_package(ORXSrvBasic CONFIG REQUIRED)
#   target_link_libraries(app ORXSrvBasic::ORXSrvBasic)
include(CMakePackageConfigHelpers)

set(ORXSRV_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ORXSrvBasic")

install(TARGETS ORXBasBase ORXSimDatabase ORXSrvBasic
  EXPORT ORXSrvBasicTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(headers "")
foreach(header IN LISTS ORXSRV_PUBLIC_HEADERS)
  if(header)
    list(APPEND headers "${header}")
  endif()
endforeach()
install(FILES ${headers} "${PROJECT_BINARY_DIR}/include/ORXSrvBasic.h"
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ORXSrvBasic)

install(EXPORT ORXSrvBasicTargets NAMESPACE ORXSrvBasic:: DESTINATION ${ORXSRV_CMAKE_DIR})
configure_package_config_file(cmake/ORXSrvBasicConfig.cmake.in
  "${PROJECT_BINARY_DIR}/ORXSrvBasicConfig.cmake" INSTALL_DESTINATION ${ORXSRV_CMAKE_DIR})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ORXSrvBasicConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ORXSrvBasicConfig.cmake" "${PROJECT_BINARY_DIR}/ORXSrvBasicConfigVersion.cmake"
  DESTINATION ${ORXSRV_CMAKE_DIR})
