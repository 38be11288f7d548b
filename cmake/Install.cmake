# `find_package(inpdeck)` gives the target inpdeck::VRXI2sInp; headers are reachable by bare name.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

get_property(targets GLOBAL PROPERTY INPDECK_TARGETS)
get_property(folders GLOBAL PROPERTY INPDECK_HEADER_FOLDERS)
install(TARGETS ${targets} EXPORT inpdeckTargets)
foreach(folder IN LISTS folders)
  install(DIRECTORY ${folder}/ DESTINATION include/inpdeck
          FILES_MATCHING PATTERN "*.h" PATTERN "*.def")
endforeach()
install(EXPORT inpdeckTargets NAMESPACE inpdeck:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/inpdeck
        FILE inpdeckConfig.cmake)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/inpdeckConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/inpdeckConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/inpdeck)
