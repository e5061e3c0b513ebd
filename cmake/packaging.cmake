# What is installed, and the Debian package (cpack -G DEB).

install(TARGETS ledgerminder-cli RUNTIME DESTINATION bin)
if(LEDGERMINDER_DESKTOP)
  install(TARGETS ledgerminder RUNTIME DESTINATION bin BUNDLE DESTINATION .)
endif()
if(NOT UNIX OR APPLE)
  return()
endif()

set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(prepared ${CMAKE_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${prepared})

# The website and the address for questions, as the program itself tells them.
file(READ ${CMAKE_SOURCE_DIR}/core/hosts.h hosts)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/core/hosts.h)
set(package_website "${LEDGERMINDER_WEBSITE}")
if(NOT package_website AND hosts MATCHES "define LEDGERMINDER_WEBSITE \"([^\"]+)\"")
  set(package_website ${CMAKE_MATCH_1})
endif()
if(hosts MATCHES "kSupportAddress = \"([^\"]+)\"")
  set(package_support ${CMAKE_MATCH_1})
endif()
if(NOT package_website OR NOT package_support)
  message(FATAL_ERROR "core/hosts.h names no website or no address for questions")
endif()

# Debian wants manuals and changelogs packed, and packed alike by each build (-n: without the time).
find_program(GZIP gzip REQUIRED)
function(install_packed file folder name)
  execute_process(COMMAND ${GZIP} -9nc ${file} OUTPUT_FILE ${prepared}/${name}
                  COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  install(FILES ${prepared}/${name} DESTINATION ${folder})
endfunction()

function(install_manual program)
  configure_file(${packaging}/linux/${program}.1.in ${prepared}/${program}.1 @ONLY)
  install_packed(${prepared}/${program}.1 share/man/man1 ${program}.1.gz)
endfunction()

function(install_icon name drawing kind)
  foreach(size 16 22 24 32 48 64 128 256)
    install(FILES ${packaging}/icons/${name}-${size}.png RENAME ${name}.png
            DESTINATION share/icons/hicolor/${size}x${size}/${kind})
  endforeach()
  install(FILES ${drawing} DESTINATION share/icons/hicolor/scalable/${kind})
endfunction()

set(documents share/doc/ledgerminder)
install(FILES ${packaging}/linux/copyright DESTINATION ${documents})
install_packed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${documents} changelog.gz)
install_packed(${packaging}/linux/changelog ${documents} changelog.Debian.gz)
guide_files(guide)
set(texts ${guide} ${CMAKE_SOURCE_DIR}/docs/installing.md)
set(pictures ${guide})
list(FILTER texts INCLUDE REGEX "\\.md$")
list(FILTER pictures INCLUDE REGEX "\\.png$")
install(FILES ${texts} DESTINATION ${documents})
install(FILES ${pictures} DESTINATION ${documents}/images)

install_manual(ledgerminder-cli)
install(FILES ${packaging}/linux/ledgerminder-cli.bash RENAME ledgerminder-cli
        DESTINATION share/bash-completion/completions)

if(LEDGERMINDER_DESKTOP)
  install_manual(ledgerminder)
  install(FILES ${packaging}/ledgerminder.desktop DESTINATION share/applications)
  install(FILES ${packaging}/linux/ledgerminder.xml DESTINATION share/mime/packages)
  set(metainfo uk.ledgerminder.LedgerMinder.metainfo.xml)
  configure_file(${packaging}/linux/${metainfo}.in ${prepared}/${metainfo} @ONLY)
  install(FILES ${prepared}/${metainfo} DESTINATION share/metainfo)
  install_icon(ledgerminder ${CMAKE_SOURCE_DIR}/shell/qt/icons/ledgerminder.svg apps)
  install_icon(application-x-ledgerminder ${packaging}/icons/application-x-ledgerminder.svg mimetypes)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ledgerminder)
set(CPACK_PACKAGE_VENDOR LedgerMinder)
set(CPACK_PACKAGE_CONTACT "LedgerMinder developers <${package_support}>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${package_website})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "bookkeeping and NHS pension forms for locum GPs")
set(CPACK_PACKAGE_DESCRIPTION
    "LedgerMinder keeps the sessions that a locum general practitioner works in the
United Kingdom, and does the paperwork that follows from them: invoices as PDFs,
reminders, pension forms A, B and SOLO by the NHS rules to the penny, calendars,
reports by practice and by tax year.

The records stay on the computer, enciphered and checked at each start.
A second program, ledgerminder-cli, does the same work from scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# Whatever the umask of the user who packs.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# They open documents and compose e-mails; Wayland's part of Qt is a package of its own.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-wayland")
include(CPack)
