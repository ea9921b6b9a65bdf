# CPack reads this before it packs. Unless whoever packs names another time, that of the release counts
# (https://reproducible-builds.org/specs/source-date-epoch/).
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
  execute_process(COMMAND date -u -d ${CPACK_QUINZOLITH_RELEASED} +%s
    OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{SOURCE_DATE_EPOCH} ${seconds})
endif()
