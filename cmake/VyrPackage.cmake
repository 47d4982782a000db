# Debian packages, made by `cpack -G DEB` from a build configured for /usr (scripts/package.sh):
#   libvyrcore2     libvyrcore.so.2, libvyrmemory.so.2 and the bundled providers beside them
#   libvyrcore-dev  headers, the unversioned links, the CMake package and the .pc files
#   vyr-host        the host program and its manual page
# One package per install component (VyrInstall.cmake). Dependencies on system libraries come
# from the binaries (dpkg-shlibdeps); the runtime package declares its own shlibs, and the other
# two depend on it at exactly this version, since they carry the headers and the program built
# against it.
set(VYR_PACKAGE_MAINTAINER "libvyrcore maintainers <maintainers@example.org>" CACHE STRING
    "Maintainer field of the Debian packages (name <address>)")

set(VYR_DEB_RUNTIME libvyrcore${PROJECT_VERSION_MAJOR})
set(VYR_DEB_DEV libvyrcore-dev)
set(VYR_DEB_TOOLS vyr-host)

# Every package carries the copyright file and the changelog in /usr/share/doc/<package>. They
# only mean something in a package, so a plain `cmake --install` leaves them out.
set(VYR_DEB_CHANGELOG ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog)
configure_file(cmake/debian/changelog.in ${VYR_DEB_CHANGELOG} @ONLY)
add_custom_command(OUTPUT ${VYR_DEB_CHANGELOG}.gz
  COMMAND gzip -9 -n -c ${VYR_DEB_CHANGELOG} > ${VYR_DEB_CHANGELOG}.gz
  DEPENDS ${VYR_DEB_CHANGELOG}
  COMMENT "Compressing the Debian changelog")
add_custom_target(vyr_deb_changelog ALL DEPENDS ${VYR_DEB_CHANGELOG}.gz)
foreach(component runtime dev tools)
  string(TOUPPER ${component} upper)
  set(doc ${CMAKE_INSTALL_DATAROOTDIR}/doc/${VYR_DEB_${upper}})
  install(FILES cmake/debian/copyright DESTINATION ${doc} COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES ${VYR_DEB_CHANGELOG}.gz RENAME changelog.gz DESTINATION ${doc}
          COMPONENT ${component} EXCLUDE_FROM_ALL)
endforeach()

set(CPACK_GENERATOR DEB)
# The descriptions hold quotes, so CPack must escape what it writes into its configuration.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME vyrcore)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "${VYR_PACKAGE_MAINTAINER}")
# Each package's description starts with its own synopsis line; no common one is put in front.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL runtime dev tools)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE vyrcore)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${VYR_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Only the runtime package holds versioned libraries, so only it gets a shlibs file.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# dpkg-shlibdeps finds our own libraries in the build tree; the dependency on their package is ours.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_CURRENT_BINARY_DIR}
    ${CMAKE_CURRENT_BINARY_DIR}/memory)
set(exact "(= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${VYR_DEB_RUNTIME})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# The loader's cache is refreshed through the ldconfig trigger, as Debian wants it. (CPack also
# adds maintainer scripts that call ldconfig itself; see the README.)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"core library of the diagnostic-data collector
libvyrcore is the shared core of a collector that gathers a Linux server's
inventory and configuration into CIM namespaces: typed CIM values, date/times
and object paths, the object-model interfaces that provider plug-ins
implement, the provider registry, the logger and the platform services.

This package holds libvyrcore and libvyrmemory (an in-memory CIM namespace)
and, beside them, the bundled namespace providers: \"memory\" and \"linux\",
which describes the running machine from sysfs, os-release and the kernel.")

set(CPACK_DEBIAN_DEV_PACKAGE_NAME ${VYR_DEB_DEV})
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${VYR_DEB_RUNTIME} ${exact}, libboost-dev (>= 1.74)")
set(CPACK_DEBIAN_DEV_DESCRIPTION
"core library of the diagnostic-data collector - development files
libvyrcore is the shared core of a collector that gathers a Linux server's
inventory and configuration into CIM namespaces.

This package holds what programs and plug-ins are built with: the headers,
the unversioned library links, the CMake package (find_package(vyrcore))
and the pkg-config files vyrcore.pc and vyrmemory.pc.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${VYR_DEB_TOOLS})
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${VYR_DEB_RUNTIME} ${exact}")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
"host program of the diagnostic-data collector
vyr-host starts the way the collector's front end starts: it loads every
namespace provider installed beside libvyrcore, lists them, reads this
machine through the \"linux\" provider and prints who the machine is (host
name, product, machine type and model, serial number, operating system,
SCSI devices and, on request, removable media).")

include(CPack)
