# QUINZOLITH_RELEASED: the day of this version, as the newest heading of CHANGELOG.md gives it
# ("## [1.1.7] - 2026-11-25"). Manual pages, metadata and packages show it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
file(STRINGS CHANGELOG.md headings REGEX "^## \\[[0-9]")
list(GET headings 0 newest)
if(NOT newest MATCHES "^## \\[${PROJECT_VERSION}\\] - ([0-9]+-[0-9]+-[0-9]+)$")
  message(FATAL_ERROR "CHANGELOG.md begins with \"${newest}\", but this is version ${PROJECT_VERSION}.")
endif()
set(QUINZOLITH_RELEASED ${CMAKE_MATCH_1})

# quinzolith_news(RESULT): what that version brings, the points of its part of CHANGELOG.md, one <li> each.
function(quinzolith_news result)
  file(READ ${PROJECT_SOURCE_DIR}/CHANGELOG.md text)
  string(REGEX REPLACE ".*\n## \\[${PROJECT_VERSION}\\][^\n]*" "" text "${text}")
  string(REGEX REPLACE "\n## .*" "" text "${text}")
  string(REGEX REPLACE "\n  +" " " text "${text}")
  string(REGEX REPLACE "[]`[]" "" text "${text}")
  string(REPLACE "&" "&amp;" text "${text}")
  string(REPLACE "<" "&lt;" text "${text}")
  string(REPLACE ";" "\\;" text "${text}")
  string(REGEX MATCHALL "\n- [^\n]+" points "${text}")
  list(TRANSFORM points REPLACE "\n- (.*)" "          <li>\\1</li>")
  list(JOIN points "\n" news)
  set(${result} "${news}" PARENT_SCOPE)
endfunction()

# quinzolith_developer_name(RESULT): who makes it, with an id where the validator of this machine knows
# that form (AppStream 1.0 and later); before, the name alone.
function(quinzolith_developer_name result)
  set(name "  <developer_name>Kelvo Software</developer_name>")
  find_program(APPSTREAMCLI appstreamcli)
  if(APPSTREAMCLI)
    execute_process(COMMAND ${APPSTREAMCLI} --version OUTPUT_VARIABLE version)
    if(version MATCHES "([0-9]+)\\.[0-9]+" AND CMAKE_MATCH_1 GREATER_EQUAL 1)
      set(name "  <developer id=\"org.kelvo\">\n    <name>Kelvo Software</name>\n  </developer>")
    endif()
  endif()
  set(${result} "${name}" PARENT_SCOPE)
endfunction()
