# What `cmake --install` puts in place: the program, its resources, and the library below
# the commands with its headers, as the package Zenivo with the target Zenivo::zenivo.

include(CMakePackageConfigHelpers)

set(ZENIVO_LIBRARY_LAYERS ${ZENIVO_LAYERS})
list(FILTER ZENIVO_LIBRARY_LAYERS EXCLUDE REGEX "^(commands/|cli$|server$)")

add_library(zenivo_library INTERFACE)
set_target_properties(zenivo_library PROPERTIES EXPORT_NAME zenivo)
add_library(Zenivo::zenivo ALIAS zenivo_library)
set(targets zenivo_library)
foreach(layer IN LISTS ZENIVO_LIBRARY_LAYERS)
  string(REPLACE "/" "_" name ${layer})
  target_link_libraries(zenivo_library INTERFACE zenivo_${name})
  list(APPEND targets zenivo_${name})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/${layer}/
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zenivo/${layer}
    FILES_MATCHING PATTERN "*.h" PATTERN "*.inc")
endforeach()
target_compile_features(zenivo_library INTERFACE cxx_std_20)

set(config ${CMAKE_INSTALL_LIBDIR}/cmake/Zenivo)
install(TARGETS ${targets} EXPORT ZenivoTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}/zenivo
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zenivo)
install(EXPORT ZenivoTargets NAMESPACE Zenivo:: DESTINATION ${config})
install(FILES ${PROJECT_SOURCE_DIR}/cmake/ZenivoConfig.cmake ${PROJECT_SOURCE_DIR}/cmake/packages.cmake
  DESTINATION ${config})
write_basic_package_version_file(ZenivoConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ZenivoConfigVersion.cmake DESTINATION ${config})

install(TARGETS zenivo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/ ${ZENIVO_GENERATED_RESOURCE_DIR}/
  DESTINATION ${CMAKE_INSTALL_DATADIR}/zenivo
  PATTERN "catalogue" EXCLUDE)
