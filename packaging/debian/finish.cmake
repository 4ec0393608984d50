# Run by cpack on the files that the package will hold: brings the documents into the form that Debian asks for.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(doc ${share}/doc/tessaline)

file(REMOVE ${doc}/LICENSE)
file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${doc})
file(RENAME ${doc}/CHANGELOG.md ${doc}/changelog)
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/changelog ${doc}/changelog.Debian)
execute_process(COMMAND gzip -9n ${doc}/changelog ${doc}/changelog.Debian ${share}/man/man1/tessaline.1
                COMMAND_ERROR_IS_FATAL ANY)

# Who compiled it is of no use to anyone who installs it.
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note
                        ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/tessaline COMMAND_ERROR_IS_FATAL ANY)

# Whatever the umask of whoever packs.
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr COMMAND_ERROR_IS_FATAL ANY)
