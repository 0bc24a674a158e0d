# Install rules, the CMake package and the pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/qdr")

install(TARGETS qdr_kernel EXPORT qdrTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
if(TARGET qdr_pdf)
  install(TARGETS qdr_pdf EXPORT qdrTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
endif()
if(TARGET qdr)
  set_target_properties(qdr PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  install(TARGETS qdr RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()

foreach(folder platform geometry database entities interaction controls hostcore)
  install(DIRECTORY "${CMAKE_SOURCE_DIR}/${folder}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/qdr"
    FILES_MATCHING PATTERN "*.h" PATTERN "internal" EXCLUDE PATTERN "qt" EXCLUDE)
endforeach()
install(FILES "${CMAKE_SOURCE_DIR}/qdr.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/qdr")
install(DIRECTORY "${CMAKE_SOURCE_DIR}/data/" DESTINATION "${CMAKE_INSTALL_DATADIR}/qdr")

install(EXPORT qdrTargets NAMESPACE qdr:: DESTINATION "${package_dir}")
configure_package_config_file("${CMAKE_SOURCE_DIR}/cmake/package/qdrConfig.cmake.in"
  "${CMAKE_BINARY_DIR}/qdrConfig.cmake" INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/qdrConfigVersion.cmake"
  VERSION "${PROJECT_VERSION}" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/qdrConfig.cmake" "${CMAKE_BINARY_DIR}/qdrConfigVersion.cmake"
  DESTINATION "${package_dir}")

# The pkg-config file finds its prefix from where it lies, so an installed tree can be moved.
file(RELATIVE_PATH QDR_PC_TO_PREFIX "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file("${CMAKE_SOURCE_DIR}/cmake/package/qdr.pc.in" "${CMAKE_BINARY_DIR}/qdr.pc" @ONLY)
install(FILES "${CMAKE_BINARY_DIR}/qdr.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
