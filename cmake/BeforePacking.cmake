# CPack runs this when the files of a package lie below CPACK_TEMPORARY_DIRECTORY, before it packs them.

set(source ${CMAKE_CURRENT_LIST_DIR}/..)

# What is committed, and nothing else.
function(lay_out_source folder)
  execute_process(COMMAND git status --porcelain WORKING_DIRECTORY ${source}
    OUTPUT_VARIABLE changes COMMAND_ERROR_IS_FATAL ANY)
  if(changes)
    message(FATAL_ERROR "Commit first; a source archive holds what is committed:\n${changes}")
  endif()
  execute_process(
    COMMAND git archive HEAD
    COMMAND tar -x -C ${folder}
    WORKING_DIRECTORY ${source} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The tree stays below /opt; links, desktop files and manual go where Debian looks for them.
function(lay_out_debian root)
  file(MAKE_DIRECTORY ${root}/usr/bin)
  file(RENAME ${root}/opt/share ${root}/usr/share)
  file(GLOB programs RELATIVE ${root}/opt/bin ${root}/opt/bin/*)
  foreach(program ${programs})
    file(CREATE_LINK "/opt/Kelvo Software/Quinzolith/${program}" ${root}/usr/bin/${program} SYMBOLIC)
  endforeach()
  file(REMOVE_RECURSE ${root}/opt/bin)
  file(RENAME ${root}/usr/share/zsh/site-functions ${root}/usr/share/zsh/vendor-completions)
  configure_file(${source}/packaging/lintian-overrides ${root}/usr/share/lintian/overrides/quinzolith COPYONLY)
  # Whoever packs need not be root; the installed folder is the same.
  execute_process(COMMAND chmod 1777 "${root}/opt/Kelvo Software/Quinzolith/User"
    COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The changes of the program and those of the package, and the pages of the manual, all packed.
function(pack_documents root)
  set(documents ${root}/usr/share/doc/quinzolith)
  file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
  string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)
  file(WRITE ${documents}/changelog.Debian
    "quinzolith (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) stable; urgency=medium\n\n"
    "  * Version ${CPACK_PACKAGE_VERSION}; changelog.gz tells what is new.\n\n"
    " -- ${CPACK_PACKAGE_CONTACT}  ${now}\n")
  file(GLOB pages ${root}/usr/share/man/*/*)
  execute_process(COMMAND gzip -9n ${documents}/changelog ${documents}/changelog.Debian ${pages}
    COMMAND_ERROR_IS_FATAL ANY)
endfunction()

if(CPACK_GENERATOR STREQUAL DEB)
  lay_out_debian(${CPACK_TEMPORARY_INSTALL_DIRECTORY})
  pack_documents(${CPACK_TEMPORARY_INSTALL_DIRECTORY})
else()
  lay_out_source(${CPACK_TEMPORARY_INSTALL_DIRECTORY})
endif()
