# Install tree: bin (DLLs and the workbench), lib (import libraries, CMake package), include (public headers).
include(CMakePackageConfigHelpers)

set(package_dir lib/cmake/TavKit)
install(TARGETS TavAfx TavAfxMain TavBcg TavHost TavKit
        EXPORT TavKitTargets
        RUNTIME DESTINATION bin
        ARCHIVE DESTINATION lib
        INCLUDES DESTINATION include include/afx include/bcg)
install(TARGETS Workbench RUNTIME DESTINATION bin)
install(FILES workbench/Product.xml DESTINATION bin)
install(DIRECTORY samples DESTINATION .)
install(FILES ${TAVKIT_RUNTIME_DLLS} DESTINATION bin)
install(DIRECTORY platform/afx/ DESTINATION include/afx FILES_MATCHING PATTERN "*.h" PATTERN "impl" EXCLUDE PATTERN "main" EXCLUDE)
install(FILES platform/afx/main/afxmain.cpp DESTINATION include/afx/main) # compiled into the consumer's program
install(DIRECTORY platform/bcg/ DESTINATION include/bcg FILES_MATCHING PATTERN "*.h")
# What the host's services offer is declared with the library, so host/ has no headers to install.
install(DIRECTORY tavkit DESTINATION include FILES_MATCHING PATTERN "*.h")
install(FILES LICENSE DESTINATION share/doc/TavKit)
install(EXPORT TavKitTargets NAMESPACE TavKit:: DESTINATION ${package_dir})
configure_package_config_file(cmake/TavKitConfig.cmake.in "${CMAKE_BINARY_DIR}/TavKitConfig.cmake" INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file("${CMAKE_BINARY_DIR}/TavKitConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_BINARY_DIR}/TavKitConfig.cmake" "${CMAKE_BINARY_DIR}/TavKitConfigVersion.cmake" DESTINATION ${package_dir})
