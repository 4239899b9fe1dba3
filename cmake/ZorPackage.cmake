# Installs what lets a host find the libraries: find_package(ZorGeometryMeasure) and
# pkg-config ZorGeometryMeasure. Both work from wherever the installed tree is moved to.
include(CMakePackageConfigHelpers)

set(zor_cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ZorGeometryMeasure")
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/ZorGeometryMeasureConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/package/ZorGeometryMeasureConfig.cmake"
  INSTALL_DESTINATION "${zor_cmake_dir}"
  NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/package/ZorGeometryMeasureConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(EXPORT ZorGeometryMeasureTargets NAMESPACE Zor:: DESTINATION "${zor_cmake_dir}")
install(FILES "${PROJECT_BINARY_DIR}/package/ZorGeometryMeasureConfig.cmake"
              "${PROJECT_BINARY_DIR}/package/ZorGeometryMeasureConfigVersion.cmake"
        DESTINATION "${zor_cmake_dir}")

set(zor_pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
           BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}/${zor_pkgconfig_dir}"
           OUTPUT_VARIABLE ZOR_PREFIX_FROM_PC)
configure_file("${CMAKE_CURRENT_LIST_DIR}/ZorGeometryMeasure.pc.in"
               "${PROJECT_BINARY_DIR}/package/ZorGeometryMeasure.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/package/ZorGeometryMeasure.pc"
        DESTINATION "${zor_pkgconfig_dir}")
