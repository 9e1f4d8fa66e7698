# Installs headers, both libraries, a CMake package (find_package(Pixmoor)
# gives Pixmoor::pixmoor and Pixmoor::pixmoor_static) and pixmoor.pc.
include(CMakePackageConfigHelpers)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/pixmoor
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS pixmoor pixmoor_static
        EXPORT PixmoorTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT PixmoorTargets
        NAMESPACE Pixmoor::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Pixmoor)
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/PixmoorConfig.cmake.in
  ${PROJECT_BINARY_DIR}/PixmoorConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Pixmoor)
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/PixmoorConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PixmoorConfig.cmake
              ${PROJECT_BINARY_DIR}/PixmoorConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Pixmoor)

configure_file(${PROJECT_SOURCE_DIR}/cmake/pixmoor.pc.in
               ${PROJECT_BINARY_DIR}/pixmoor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pixmoor.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
