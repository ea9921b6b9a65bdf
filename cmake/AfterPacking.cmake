# CPack runs this when CPACK_PACKAGE_FILES are packed. It notes the packer's mask inside a Debian package;
# Debian's own tool does not, so it packs once more.
if(CPACK_GENERATOR STREQUAL DEB)
  set(unpacked ${CPACK_TOPLEVEL_DIRECTORY}/unpacked)
  file(REMOVE_RECURSE ${unpacked})
  execute_process(
    COMMAND dpkg-deb --raw-extract ${CPACK_PACKAGE_FILES} ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND dpkg-deb --root-owner-group -Zgzip --build ${unpacked} ${CPACK_PACKAGE_FILES}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()
