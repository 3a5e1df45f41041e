# Installs the files that belong to the programs (each program installs itself) and says what `cpack` packs: the command
# line with everything that both programs share, which needs no Qt, and on top of it the window. What does not name the
# component "window" belongs to the first.

# The programs find it relative to their own folder: see src/platform/Pastas.cpp.
set(pasta_instalada ${CMAKE_INSTALL_DATADIR}/quilatador)
set(construidos ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
set(identidade org.quilatador.Quilatador)
set(documentacao ${CMAKE_INSTALL_DATADIR}/doc) # a folder in it is named as the package, in lower case for Debian
set(dos_pacotes ${PROJECT_SOURCE_DIR}/data/debian)

install(FILES ${construidos}/Arquivo_ZUL702.xml ${construidos}/TabelaErrosZUL.mdb DESTINATION ${pasta_instalada})
install(DIRECTORY ${construidos}/Documentos DESTINATION ${pasta_instalada})

install(FILES LEIAME.md CHANGELOG.md DESTINATION ${documentacao}/quilatador-cli)
# Where the links of LEIAME.md point to.
install(FILES docs/csv.md docs/findings.md docs/json.md docs/json.schema.json docs/laudo.md DESTINATION ${documentacao}/quilatador-cli/docs)
install(FILES data/completions/quilatador-cli.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME quilatador-cli)

# Installs a file compressed if gzip is there, and without a time stamp, so that a package comes out the same each time.
find_program(QUILATADOR_GZIP gzip)
mark_as_advanced(QUILATADOR_GZIP)
function(instalar_comprimido arquivo pasta componente)
  if(QUILATADOR_GZIP)
    cmake_path(GET arquivo FILENAME nome)
    set(comprimido ${CMAKE_BINARY_DIR}/comprimidos/${nome}.gz)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/comprimidos)
    execute_process(COMMAND ${QUILATADOR_GZIP} -9nc ${arquivo} OUTPUT_FILE ${comprimido} COMMAND_ERROR_IS_FATAL ANY)
    set(arquivo ${comprimido})
  endif()
  install(FILES ${arquivo} DESTINATION ${pasta} COMPONENT ${componente})
endfunction()

# What every package must have: the manual of its program, its history and its license.
function(instalar_do_pacote componente pacote manual)
  configure_file(data/man/${manual}.in ${CMAKE_BINARY_DIR}/man/${manual} @ONLY)
  instalar_comprimido(${CMAKE_BINARY_DIR}/man/${manual} ${CMAKE_INSTALL_MANDIR}/man1 ${componente})
  instalar_comprimido(${dos_pacotes}/changelog ${documentacao}/${pacote} ${componente})
  install(FILES ${dos_pacotes}/copyright DESTINATION ${documentacao}/${pacote} COMPONENT ${componente})
endfunction()

set(CPACK_COMPONENTS_ALL cli)
instalar_do_pacote(cli quilatador-cli quilatador-cli.1)
if(QUILATADOR_WINDOW)
  list(APPEND CPACK_COMPONENTS_ALL window)
  instalar_do_pacote(window quilatador Quilatador.1)
  install(FILES data/desktop/${identidade}.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications
          COMPONENT window)
  install(FILES data/desktop/${identidade}.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
          COMPONENT window)
  install(FILES data/desktop/${identidade}.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
          COMPONENT window)
  # The window's logo is the icon too, so that there is only one picture to draw.
  install(FILES src/frontend/window/qt/recursos/logo.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps
          RENAME ${identidade}.svg
          COMPONENT window)
endif()

# Debian takes the version of a package from here, CPack from the project.
file(STRINGS ${dos_pacotes}/changelog primeira_linha LIMIT_COUNT 1)
if(NOT primeira_linha MATCHES "^quilatador \\(${PROJECT_VERSION}\\) ")
  message(FATAL_ERROR "The first entry of data/debian/changelog is not that of version ${PROJECT_VERSION}.")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quilatador)
set(CPACK_PACKAGE_VENDOR "the Quilatador de Leiaute developers")
# A package must name an address. Names that end in ".invalid" are reserved, so that this one belongs to nobody.
set(CPACK_PACKAGE_CONTACT "Quilatador de Leiaute developers <developers@quilatador.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
# A folder of a package has the same rights whatever the umask of the one who packs.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SOURCE quilatador)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/CheckPackages.cmake)

set(o_que_confere
"Checks the fixed-width files that a company exchanges with its bank to have
collection slips printed and paid (ZUL702), and explains what comes back
(ZUL708, TAV001). The texts are in Portuguese.")
set(CPACK_DEBIAN_CLI_PACKAGE_NAME quilatador-cli)
set(CPACK_DEBIAN_CLI_DESCRIPTION
"${o_que_confere}
.
This package has the command line and what both programs share.")
set(CPACK_DEBIAN_CLI_PACKAGE_SUGGESTS "quilatador, xdg-utils") # the latter for the option that opens a log
# One package used to have both programs.
set(CPACK_DEBIAN_CLI_PACKAGE_BREAKS "quilatador (<< ${PROJECT_VERSION})")
set(CPACK_DEBIAN_CLI_PACKAGE_REPLACES "quilatador (<< ${PROJECT_VERSION})")

set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME quilatador)
set(CPACK_DEBIAN_WINDOW_DESCRIPTION
"${o_que_confere}
.
This package has the window.")
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS "quilatador-cli (= ${PROJECT_VERSION})")
# The window asks the desktop to open a log or a document; Qt's own dialogs are translated.
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "xdg-utils, qt6-translations-l10n")
include(CPack)
