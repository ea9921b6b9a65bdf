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
    COMMAND git -c tar.umask=0022 archive HEAD
    COMMAND tar -x -p -C ${folder}
    WORKING_DIRECTORY ${source} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# share_data(ROOT FOLDER NAME): moves what is the same on every kind of machine out of a folder of the
# tree to usr/share/quinzolith, and leaves a link.
function(share_data root folder name)
  set(shared ${root}/usr/share/quinzolith)
  file(MAKE_DIRECTORY ${shared})
  file(RENAME "${root}/usr/lib/quinzolith/Kelvo Software/${folder}/${name}" "${shared}/${name}")
  file(CREATE_LINK "../../../../share/quinzolith/${name}"
    "${root}/usr/lib/quinzolith/Kelvo Software/${folder}/${name}" SYMBOLIC)
endfunction()

# Strips the programs, and links them from usr/COMMANDS.
function(lay_out_programs root commands)
  set(tree "lib/quinzolith/Kelvo Software/Quinzolith")
  file(GLOB programs RELATIVE "${root}/usr/${tree}" "${root}/usr/${tree}/quinzolith*")
  file(MAKE_DIRECTORY ${root}/usr/${commands})
  foreach(program ${programs})
    execute_process(COMMAND strip --remove-section=.comment --remove-section=.note
      "${root}/usr/${tree}/${program}" COMMAND_ERROR_IS_FATAL ANY)
    file(CREATE_LINK "../${tree}/${program}" ${root}/usr/${commands}/${program} SYMBOLIC)
  endforeach()
endfunction()

# The tree lies below /usr/lib/quinzolith; links, desktop files and manual go where systems look for them.
function(lay_out_package root commands)
  set(prefix ${root}/usr/lib/quinzolith)
  file(RENAME ${prefix}/share ${root}/usr/share)
  file(REMOVE_RECURSE ${prefix}/bin)
  lay_out_programs(${root} ${commands})
  foreach(name puzzles tiles Quinzolith.chm)
    share_data(${root} Quinzolith ${name})
  endforeach()
  share_data(${root} "Common Files" MIDI)
endfunction()

# Whatever the mask of whoever packs. Comes last, when all files are there.
function(let_all_read root)
  execute_process(COMMAND chmod -R u=rwX,go=rX ${root}/usr COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Debian wants the commands of games in /usr/games (Policy 11.11). Not every desktop looks there, so
# their entries name the whole path.
function(lay_out_debian root)
  lay_out_package(${root} games)
  file(GLOB entries ${root}/usr/share/applications/*)
  foreach(entry ${entries})
    file(READ ${entry} text)
    string(REPLACE "Exec=" "Exec=/usr/games/" text "${text}")
    file(WRITE ${entry} "${text}")
  endforeach()
  file(RENAME ${root}/usr/share/zsh/site-functions ${root}/usr/share/zsh/vendor-completions)
  configure_file(${source}/packaging/lintian-overrides ${root}/usr/share/lintian/overrides/quinzolith COPYONLY)
endfunction()

# The changes of the program and those of the package, and the pages of the manual, all packed.
function(pack_documents root)
  set(documents ${root}/usr/share/doc/quinzolith)
  file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)
  string(TIMESTAMP now "%a, %d %b %Y %H:%M:%S +0000" UTC)  # of SOURCE_DATE_EPOCH, where it is set
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
  let_all_read(${CPACK_TEMPORARY_INSTALL_DIRECTORY})
elseif(CPACK_GENERATOR STREQUAL RPM)
  lay_out_package(${CPACK_TEMPORARY_INSTALL_DIRECTORY} bin)
  let_all_read(${CPACK_TEMPORARY_INSTALL_DIRECTORY})
else()
  lay_out_source(${CPACK_TEMPORARY_INSTALL_DIRECTORY})
endif()
