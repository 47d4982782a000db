# Run paths of what we install. A program or plug-in finds libvyrcore through $ORIGIN when the
# library goes to a directory of its own (/opt/vyrcore/lib, say). Installed into a directory the
# loader searches anyway (/usr/lib/<multiarch> for the Debian packages) it carries none: a run
# path there is redundant, and Debian refuses it.
set(VYR_LIBDIR_IS_SYSTEM OFF)
foreach(dir IN LISTS CMAKE_PLATFORM_IMPLICIT_LINK_DIRECTORIES CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
  if(dir STREQUAL CMAKE_INSTALL_FULL_LIBDIR)
    set(VYR_LIBDIR_IS_SYSTEM ON)
  endif()
endforeach()

# vyr_set_install_rpath(target rpath): the target's installed run path, unless the library
# directory is a system one.
function(vyr_set_install_rpath target rpath)
  if(NOT VYR_LIBDIR_IS_SYSTEM)
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "${rpath}")
  endif()
endfunction()

# vyr_install_manual_page(page component): installs the roff page of the current source directory
# compressed (gzip -9n, reproducible) into the man section its name ends in.
function(vyr_install_manual_page page component)
  string(REGEX MATCH "[0-9]$" section "${page}")
  set(source ${CMAKE_CURRENT_SOURCE_DIR}/${page})
  set(compressed ${CMAKE_CURRENT_BINARY_DIR}/${page}.gz)
  add_custom_command(OUTPUT ${compressed}
    COMMAND gzip -9 -n -c ${source} > ${compressed}
    DEPENDS ${source}
    COMMENT "Compressing the manual page ${page}")
  add_custom_target(vyr_manual_page_${page} ALL DEPENDS ${compressed})
  install(FILES ${compressed} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section}
          COMPONENT ${component})
endfunction()

# vyr_set_module_soname(target): gives a loadable module its own file name as SONAME. The
# providers are installed into the library directory, where Debian wants every shared object to
# carry one; nothing links against them, so the name only says which file it is.
function(vyr_set_module_soname target)
  get_target_property(name ${target} OUTPUT_NAME)
  target_link_options(${target} PRIVATE "LINKER:-soname,${name}")
endfunction()
