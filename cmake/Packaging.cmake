# Installs the files that belong to the programs (each program installs itself) and says what `cpack` packs.

# The programs find it relative to their own folder: see src/platform/Pastas.cpp.
set(pasta_instalada ${CMAKE_INSTALL_DATADIR}/quilatador)
set(construidos ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
set(identidade org.quilatador.Quilatador)
set(documentacao ${CMAKE_INSTALL_DATADIR}/doc/quilatador) # the package name, which Debian wants in lower case

install(FILES ${construidos}/Arquivo_ZUL702.xml ${construidos}/TabelaErrosZUL.mdb DESTINATION ${pasta_instalada})
install(DIRECTORY ${construidos}/Documentos DESTINATION ${pasta_instalada})

install(FILES LICENSE DESTINATION ${documentacao} RENAME copyright)
install(FILES LEIAME.md CHANGELOG.md docs/findings.md docs/json.md DESTINATION ${documentacao})
install(FILES data/completions/quilatador-cli.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME quilatador-cli)

set(manuais quilatador-cli.1)
if(QUILATADOR_WINDOW)
  list(APPEND manuais Quilatador.1)
  install(FILES data/desktop/${identidade}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES data/desktop/${identidade}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  # The window's logo is the icon too, so that there is only one picture to draw.
  install(FILES src/frontend/window/qt/recursos/logo.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
          RENAME ${identidade}.svg)
endif()

# Manuals are compressed if gzip is there, and without a time stamp, so that a package comes out the same each time.
find_program(QUILATADOR_GZIP gzip)
mark_as_advanced(QUILATADOR_GZIP)
foreach(manual ${manuais})
  set(arquivo ${CMAKE_BINARY_DIR}/man/${manual})
  configure_file(data/man/${manual}.in ${arquivo} @ONLY)
  if(QUILATADOR_GZIP)
    execute_process(COMMAND ${QUILATADOR_GZIP} -9nc ${arquivo} OUTPUT_FILE ${arquivo}.gz COMMAND_ERROR_IS_FATAL ANY)
    string(APPEND arquivo .gz)
  endif()
  install(FILES ${arquivo} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quilatador)
set(CPACK_PACKAGE_VENDOR "the Quilatador de Leiaute developers")
# A package must name an address. Names that end in ".invalid" are reserved, so that this one belongs to nobody.
set(CPACK_PACKAGE_CONTACT "Quilatador de Leiaute developers <developers@quilatador.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The programs ask the desktop to open a log or a document.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
if(QUILATADOR_WINDOW)
  string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", qt6-translations-l10n") # Qt's own dialogs in Portuguese
endif()
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Checks the fixed-width files that a company exchanges with its bank to have
collection slips printed and paid (ZUL702), and explains what comes back
(ZUL708, TAV001). The texts are in Portuguese.")
include(CPack)
