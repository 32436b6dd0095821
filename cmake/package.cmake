# Installation and the Debian package (CPack). `bash scripts/package.sh` builds it.
# The programs go to /usr/bin, their manual pages to section 1, the desktop entry
# and the MIME type of option files to /usr/share, the editor syntax definition
# where KSyntaxHighlighting looks for it, the Ansible module where Ansible looks
# for modules, and the examples under the package's doc folder. The registry
# stand-in's system-wide folder /etc/zunwiz/registry is made by the package's
# maintainer script.
set(CMAKE_INSTALL_DOCDIR share/doc/zunwiz)
include(GNUInstallDirs)

set(zw_pkg ${CMAKE_SOURCE_DIR}/packaging)
foreach(t zunwiz zunwiz-run zunwiz-check zunwiz-opc zunwiz-undo)
  if(TARGET ${t})
    install(TARGETS ${t} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()
# The console script host is "vbs" in the build tree; installed it carries the
# product's name, so that it does not take a generic command name on the system.
if(TARGET vbs)
  install(PROGRAMS $<TARGET_FILE:vbs> DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME zunwiz-vbs)
  # A renamed copy is not a target, so the packager's stripping does not reach it.
  install(CODE "execute_process(COMMAND ${CMAKE_STRIP} --strip-unneeded
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/zunwiz-vbs\")")
endif()

# Manual pages, compressed as Debian wants them.
file(GLOB zw_mans ${zw_pkg}/man/*.1)
foreach(m ${zw_mans})
  get_filename_component(n ${m} NAME)
  set(gz ${CMAKE_BINARY_DIR}/man/${n}.gz)
  add_custom_command(OUTPUT ${gz}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/man
    COMMAND gzip -9nc ${m} > ${gz}
    DEPENDS ${m} VERBATIM)
  list(APPEND zw_mangz ${gz})
endforeach()
add_custom_target(zw_man ALL DEPENDS ${zw_mangz})
install(FILES ${zw_mangz} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

# Changelog and copyright of the package's doc folder.
set(zw_chl ${CMAKE_BINARY_DIR}/changelog.gz)
add_custom_command(OUTPUT ${zw_chl}
  COMMAND gzip -9nc ${zw_pkg}/changelog > ${zw_chl}
  DEPENDS ${zw_pkg}/changelog VERBATIM)
add_custom_target(zw_changelog ALL DEPENDS ${zw_chl})
install(FILES ${zw_chl} ${zw_pkg}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

install(FILES ${zw_pkg}/zunwiz.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${zw_pkg}/zunwiz-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME zunwiz.xml)
install(FILES ${zw_pkg}/zunwiz-par.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/org.kde.syntax-highlighting/syntax)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
# The Ansible module, in the folder of modules that Ansible searches by default.
install(FILES ${zw_pkg}/ansible/zunwiz.py DESTINATION ${CMAKE_INSTALL_DATADIR}/ansible/plugins/modules)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zunwiz)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "ZunWiz developers <zunwiz-dev@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "wizard engine that installs and configures software")
set(CPACK_PACKAGE_DESCRIPTION "ZunWiz reads one option file that defines a whole wizard\n(window, pages, components, transitions and a VBScript program) and runs it.\nThe package holds the wizard program, an unattended runner for servers and\ntests, a checker for authors, the option-file tool, a console script host and\nan undo of recorded runs.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# qt6-translations-l10n: the boxes' buttons in the user's language.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qt6-translations-l10n")
# ansible-core: the "zunwiz" module runs wizards on a fleet's hosts.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "ansible-core")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${zw_pkg}/postinst ${zw_pkg}/postrm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS OFF)
set(CPACK_STRIP_FILES ON)
set(CPACK_SET_DESTDIR OFF)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
