# Installation: headers, the libraries, a CMake package (find_package(vyrcore CONFIG) gives
# vyrcore::vyrcore and vyrcore::vyrmemory) and pkg-config files (vyrcore.pc, vyrmemory.pc).
# Components follow the Debian packages (VyrPackage.cmake): "runtime" is what a program needs to
# run, "dev" what it needs to build, "tools" the host program.
include(CMakePackageConfigHelpers)

install(DIRECTORY include/vyrcore DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT dev)
install(TARGETS vyrcore vyrmemory EXPORT vyrcoreTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

set(VYR_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/vyrcore)
install(EXPORT vyrcoreTargets NAMESPACE vyrcore:: DESTINATION ${VYR_CMAKE_DIR} COMPONENT dev)
configure_package_config_file(cmake/vyrcoreConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/vyrcoreConfig.cmake INSTALL_DESTINATION ${VYR_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/vyrcoreConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vyrcoreConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/vyrcoreConfigVersion.cmake
        DESTINATION ${VYR_CMAKE_DIR} COMPONENT dev)

# pkg-config: the .pc files are written at install time so that they carry the real prefix of
# `cmake --install --prefix P`, not the one chosen at configure time.
function(vyr_install_pkgconfig name)
  # The first pass fills in everything but the prefix, which it leaves as a placeholder.
  set(VYR_PC_PREFIX "@VYR_PC_PREFIX@")
  configure_file(cmake/${name}.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc.in @ONLY)
  install(CODE "
    set(VYR_PC_PREFIX \"\${CMAKE_INSTALL_PREFIX}\")
    configure_file(\"${CMAKE_CURRENT_BINARY_DIR}/${name}.pc.in\"
                   \"${CMAKE_CURRENT_BINARY_DIR}/pc/${name}.pc\" @ONLY)
    file(INSTALL \"${CMAKE_CURRENT_BINARY_DIR}/pc/${name}.pc\"
         DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig\")"
    COMPONENT dev)
endfunction()
vyr_install_pkgconfig(vyrcore)
vyr_install_pkgconfig(vyrmemory)
