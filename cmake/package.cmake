# What is installed besides the programs, and how `cpack` makes a Debian package of it all.
# tools/make-package builds the package and checks it, tools/check-package tries it.
include(GNUInstallDirs)
set(packaging ${PROJECT_SOURCE_DIR}/packaging)

if(UNIX AND NOT APPLE)
  # Debian wants man pages and changelog compressed, the same bytes each time.
  find_program(VELORIX_GZIP gzip REQUIRED)
  set(zipped)
  foreach(text velorix.1 velorix-batch.1 changelog)
    set(zip ${PROJECT_BINARY_DIR}/packaging/${text}.gz)
    add_custom_command(OUTPUT ${zip} COMMAND ${VELORIX_GZIP} -9nc ${packaging}/${text} > ${zip}
                       DEPENDS ${packaging}/${text} VERBATIM)
    list(APPEND zipped ${zip})
  endforeach()
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packaging)
  add_custom_target(velorix_packaging ALL DEPENDS ${zipped})

  set(built ${PROJECT_BINARY_DIR}/packaging)
  install(FILES ${built}/velorix-batch.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${built}/changelog.gz ${packaging}/copyright
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/velorix)
  install(FILES ${packaging}/velorix-batch.bash RENAME velorix-batch
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${packaging}/velorix-mime.xml RENAME velorix.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
  if(VELORIX_GUI)
    install(FILES ${built}/velorix.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    install(FILES ${packaging}/org.velorix.velorix.metainfo.xml
            DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  endif()
  set(CPACK_GENERATOR DEB)
else()
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/velorix)
endif()

if(VELORIX_TESTS AND UNIX AND NOT APPLE)  # checked with GNU tools
  add_test(NAME check-options COMMAND ${PROJECT_SOURCE_DIR}/tools/check-options
                                      $<TARGET_FILE:velorix-batch>)
endif()

set(CPACK_PACKAGE_NAME velorix)
set(CPACK_PACKAGE_VENDOR "The Velorix developers")
set(CPACK_PACKAGE_CONTACT "The Velorix developers <developers@velorix.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "anisotropy of magnetic susceptibility of rocks")
set(CPACK_PACKAGE_DESCRIPTION
"Velorix opens the files of measured, oriented rock specimens and shows
their tensors in specimen, geographic, paleogeographic and tectonic
coordinates, in a grid, on a stereonet, in plots and in a histogram. It
computes group statistics, bootstrap regions and density contours,
corrects orientations, and takes tables and figures into a paper.
.
The console program velorix-batch does the same from a script.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(VELORIX_GUI)
  # Loaded at run time, so unseen by the linker: the screen, TIFF files, the fonts of windows and plots.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core, fonts-liberation, qt6-image-formats-plugins, qt6-qpa-plugins")
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS qt6-wayland)
endif()
include(CPack)
