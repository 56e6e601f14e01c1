# The checks of what the package installs: manual pages, desktop entries,
# completions, and the package itself. Each runs its tool on the real files.
find_program(VELMO_DESKTOP_FILE_VALIDATE desktop-file-validate)
find_program(VELMO_ZSH zsh)

add_test(NAME packaging.man_pages
  COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tests/packaging/man_pages_test.sh
          ${VELMO_PACKAGING}/man/velmo-todo.1 ${VELMO_PACKAGING}/man/velmo.1)
if(VELMO_DESKTOP_FILE_VALIDATE)
  add_test(NAME packaging.desktop_entries
    COMMAND ${VELMO_DESKTOP_FILE_VALIDATE} ${VELMO_PACKAGING}/velmo-todo.desktop
            ${VELMO_PACKAGING}/velmo-import.desktop)
endif()
if(VELMO_ZSH)
  add_test(NAME packaging.completion
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tests/packaging/completion_test.sh
            ${CMAKE_CURRENT_SOURCE_DIR} $<TARGET_FILE:velmo>)
endif()
# The package is made from the release build only: an instrumented build's
# programs are not for installing.
if(NOT VELMO_SANITIZE)
  add_test(NAME packaging.package
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/tests/packaging/package_test.sh ${CMAKE_CURRENT_BINARY_DIR})
  set_tests_properties(packaging.package PROPERTIES TIMEOUT 600 RUN_SERIAL ON)
endif()
