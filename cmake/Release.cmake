# QUINZOLITH_RELEASED: the day of this version, as the newest heading of CHANGELOG.md gives it
# ("## [1.1.7] - 2026-11-25"). Manual pages, metadata and packages show it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
file(STRINGS CHANGELOG.md headings REGEX "^## \\[[0-9]")
list(GET headings 0 newest)
if(NOT newest MATCHES "^## \\[${PROJECT_VERSION}\\] - ([0-9]+-[0-9]+-[0-9]+)$")
  message(FATAL_ERROR "CHANGELOG.md begins with \"${newest}\", but this is version ${PROJECT_VERSION}.")
endif()
set(QUINZOLITH_RELEASED ${CMAKE_MATCH_1})
