# Where things go when the program is installed. Its manual page and completions are printed by the program itself.
include(GNUInstallDirs)

set(pages ${CMAKE_CURRENT_BINARY_DIR}/pages)
set(printed)
foreach(page man:velmar.1 bash:velmar zsh:_velmar fish:velmar.fish)
  string(REPLACE ":" ";" parts ${page})
  list(GET parts 0 what)
  list(GET parts 1 file)
  add_custom_command(OUTPUT ${pages}/${what}/${file}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${pages}/${what}
    COMMAND velmar print ${what} > ${pages}/${what}/${file}
    DEPENDS velmar VERBATIM)
  list(APPEND printed ${pages}/${what}/${file})
endforeach()
find_program(gzip gzip REQUIRED)
add_custom_command(OUTPUT ${pages}/velmar.1.gz
  COMMAND ${gzip} -9nc ${pages}/man/velmar.1 > ${pages}/velmar.1.gz
  DEPENDS ${pages}/man/velmar.1 VERBATIM)
list(APPEND printed ${pages}/velmar.1.gz)
add_custom_target(velmar_pages ALL DEPENDS ${printed})

install(TARGETS velmar)
install(FILES ${pages}/velmar.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${pages}/bash/velmar DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES ${pages}/zsh/_velmar DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${pages}/fish/velmar.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES ${CMAKE_SOURCE_DIR}/README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
install(DIRECTORY ${CMAKE_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs FILES_MATCHING PATTERN "*.md")
