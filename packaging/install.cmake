# What `cmake --install` puts where, and the Debian package made of it
# (`cpack -G DEB` in the build folder).
include(GNUInstallDirs)
# Installing (and cpack) takes the programs as built, without building every
# target first: the tests and benchmarks are not part of the package.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)
set(VELMO_PACKAGING ${CMAKE_CURRENT_SOURCE_DIR}/packaging)
set(VELMO_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/velmo-todo)

install(TARGETS velmo-todo velmo RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The user units: the reminder service, and the synchronisation's timer with its
# service when there are.
file(GLOB VELMO_UNITS CONFIGURE_DEPENDS ${VELMO_PACKAGING}/*.service ${VELMO_PACKAGING}/*.timer)
install(FILES ${VELMO_UNITS} DESTINATION lib/systemd/user)
install(FILES ${VELMO_PACKAGING}/velmo-todo.desktop ${VELMO_PACKAGING}/velmo-import.desktop
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/applications)
install(FILES ${VELMO_PACKAGING}/velmo-todo.svg
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/icons/hicolor/scalable/apps)
install(FILES ${VELMO_PACKAGING}/completion/velmo.bash
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions RENAME velmo)
install(FILES ${VELMO_PACKAGING}/completion/_velmo
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/zsh/vendor-completions)

# Manual pages and the changelog go in compressed, as Debian's policy has them;
# -n keeps the archive free of the build's time and names. Made when CMake
# configures, again whenever a source changes.
find_program(VELMO_GZIP gzip REQUIRED)
file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/packaging)
foreach(source man/velmo-todo.1 man/velmo.1 changelog)
  get_filename_component(name ${source} NAME)
  execute_process(COMMAND ${VELMO_GZIP} -9nc ${VELMO_PACKAGING}/${source}
    OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/packaging/${name}.gz COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${VELMO_PACKAGING}/${source})
endforeach()
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/packaging/velmo-todo.1.gz
              ${CMAKE_CURRENT_BINARY_DIR}/packaging/velmo.1.gz
        DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/packaging/changelog.gz ${VELMO_PACKAGING}/copyright
        DESTINATION ${VELMO_DOCDIR})
install(FILES ${VELMO_PACKAGING}/lintian-overrides
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides RENAME velmo-todo)

set(CPACK_PACKAGE_NAME velmo-todo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Velmo ToDo List developers <velmo-todo@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "keypad-first task manager for the terminal")
# The extended description; the summary above is its first line.
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "One list of tasks, filtered by views and categories, sorted by up to three
 keys and coloured by state; quick entry and one-key priority, completion,
 copy, rename and delete; reminders raised as desktop notifications even while
 the program is closed; bindable keys; telephone numbers, e-mail and web
 addresses found in a task's text. The companion command velmo lists, adds,
 imports and exports tasks for scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# SQLite, ICU, libical, ncurses and the C++ runtime are linked in; what the
# programs still load is found by dpkg-shlibdeps.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded on first use when present: desktop notifications over the session bus
# (libsystemd), category pictures (gdk-pixbuf); links open through xdg-open.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libsystemd0, libgdk-pixbuf-2.0-0, xdg-utils")
# True colour in terminals whose $TERM names a 256-colour entry: the -direct entries.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "ncurses-term, vdirsyncer")
# Folders the system owns keep the system's modes.
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
