# Packages: the targets `package` (a Debian package) and `package_source` (a source archive).

set(CPACK_PACKAGE_NAME quinzolith)
set(CPACK_PACKAGE_VENDOR "Kelvo Software")
set(CPACK_PACKAGE_CONTACT "The Quinzolith developers <support@quinzolith.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "desktop puzzle game about pentominoes")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_VERBATIM_VARIABLES ON)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr/lib/quinzolith)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${QUINZOLITH_WEBSITE})
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
A puzzle is a shape on a board and a handful of pentominoes, pieces made of
five squares. Carry them over, turn and mirror them under the cursor, and lay
them down until no square of the shape is left empty.

The game brings 36 puzzles in four levels, an easy mode, an editor, help, and
quinzolith-puzzle, a command-line tool that makes, solves and invents puzzles.")
# Linked libraries are found by their names in the programs; what is used without a link is listed.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/postinst)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
file(STRINGS scripts/packages.txt used_when_running REGEX "^run ")
list(TRANSFORM used_when_running REPLACE "^run " "")
list(JOIN used_when_running ", " CPACK_DEBIAN_PACKAGE_DEPENDS)

# cpack -G RPM makes a package for other systems, whose tool finds the linked libraries itself.
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_LICENSE MIT)
set(CPACK_RPM_PACKAGE_URL ${QUINZOLITH_WEBSITE})
set(CPACK_RPM_PACKAGE_DESCRIPTION ${CPACK_DEBIAN_PACKAGE_DESCRIPTION})
# FluidSynth is opened when a tune plays.
set(CPACK_RPM_PACKAGE_REQUIRES "xdg-utils, libfluidsynth.so.3()(64bit)")
set(CPACK_PACKAGE_RELOCATABLE OFF)
# What the system's own packages hold.
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
  /usr/share/applications /usr/share/bash-completion /usr/share/bash-completion/completions /usr/share/fish
  /usr/share/fish/vendor_completions.d /usr/share/icons /usr/share/icons/hicolor /usr/share/man /usr/share/man/man1
  /usr/share/man/man6 /usr/share/metainfo /usr/share/mime /usr/share/mime/packages /usr/share/zsh
  /usr/share/zsh/site-functions)
foreach(size 16x16 22x22 24x24 32x32 48x48 64x64 128x128 256x256 scalable)
  list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
    /usr/share/icons/hicolor/${size} /usr/share/icons/hicolor/${size}/apps)
endforeach()

set(CPACK_SOURCE_GENERATOR TXZ)
set(CPACK_SOURCE_PACKAGE_FILE_NAME quinzolith-${PROJECT_VERSION})
# The source is taken from git, not from the folder.
set(CPACK_SOURCE_INSTALLED_DIRECTORIES "")

# The same bytes at any time: files bear the day of the release, not of packing.
set(CPACK_QUINZOLITH_RELEASED ${QUINZOLITH_RELEASED})
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/WhilePacking.cmake)

set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/BeforePacking.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/AfterPacking.cmake)
include(CPack)
