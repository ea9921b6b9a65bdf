# How every target of ours is compiled, and the three kinds of target: a room, a test, a bench.

add_library(quinzolith_flags INTERFACE)
target_compile_features(quinzolith_flags INTERFACE cxx_std_20)
target_compile_definitions(quinzolith_flags INTERFACE
  QUINZOLITH_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
  QUINZOLITH_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  QUINZOLITH_VERSION_REVISION=${PROJECT_VERSION_PATCH}
  $<$<BOOL:${QUINZOLITH_DEVELOPER}>:QUINZOLITH_DEVELOPER>)
# No path of the machine that builds stands in a program that ships.
target_compile_options(quinzolith_flags INTERFACE
  $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=>)
# What ships checks the lengths of buffers, and its tables of addresses are read-only once it runs.
target_compile_options(quinzolith_flags INTERFACE
  $<$<CONFIG:Release>:-U_FORTIFY_SOURCE> $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
target_link_options(quinzolith_flags INTERFACE $<$<CONFIG:Release>:LINKER:-z,relro,-z,now>)
if(QUINZOLITH_SANITIZE)
  target_compile_options(quinzolith_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(quinzolith_flags INTERFACE -fsanitize=address,undefined)
endif()
if(QUINZOLITH_FUZZ)
  # Without the tracing of comparisons inputs come twice as fast, and reach as much.
  target_compile_options(quinzolith_flags INTERFACE
    -fsanitize=fuzzer-no-link -fno-sanitize-coverage=trace-cmp -fprofile-instr-generate -fcoverage-mapping)
  target_link_options(quinzolith_flags INTERFACE -fprofile-instr-generate)
endif()

add_library(quinzolith_warnings INTERFACE)
target_compile_options(quinzolith_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
  # GCC 12 sees overlapping copies in "text" + string at -O2 where there are none (its bug 105651).
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)

# quinzolith_include_root(TARGET FOLDER): lets TARGET, and what links it, include "FOLDER/...". The root
# is a folder in the build tree that holds one link, named like FOLDER, so it shows nothing else.
function(quinzolith_include_root target folder)
  set(root ${PROJECT_BINARY_DIR}/roots/${folder})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
  target_include_directories(${target} PUBLIC ${root})
endfunction()

# quinzolith_room(NAME SOURCES ... [LINKS ...]): a static library named after its folder. Its link line
# is the arrow: it sees what it links and what that links, and the compiler finds no other header.
function(quinzolith_room name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC quinzolith_flags ${ARG_LINKS} PRIVATE quinzolith_warnings)
  quinzolith_include_root(${name} ${name})
  set_property(GLOBAL APPEND PROPERTY QUINZOLITH_ROOMS ${name})
  set_property(GLOBAL PROPERTY QUINZOLITH_LINKS_OF_${name} ${ARG_LINKS})
endfunction()

# quinzolith_seen(ROOM RESULT): the rooms to which link lines lead from a room.
function(quinzolith_seen room result)
  get_property(rooms GLOBAL PROPERTY QUINZOLITH_ROOMS)
  get_property(links GLOBAL PROPERTY QUINZOLITH_LINKS_OF_${room})
  set(seen)
  foreach(link ${links})
    if(link IN_LIST rooms)
      quinzolith_seen(${link} further)
      list(APPEND seen ${link} ${further})
    endif()
  endforeach()
  list(REMOVE_DUPLICATES seen)
  set(${result} ${seen} PARENT_SCOPE)
endfunction()

# quinzolith_program(NAME SOURCES ... [LINKS ...]): an executable that ships, built into the tree.
function(quinzolith_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE quinzolith_flags quinzolith_warnings ${ARG_LINKS})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${QUINZOLITH_TREE})
  install(TARGETS ${name} RUNTIME DESTINATION ${QUINZOLITH_FOLDER})
endfunction()

# quinzolith_tool(NAME SOURCES ... [LINKS ...]): an executable for this program's makers; never installed.
function(quinzolith_tool name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE quinzolith_flags quinzolith_warnings ${ARG_LINKS})
endfunction()

# quinzolith_test(NAME SOURCES ... [LINKS ...] [UNDER COMMAND ...] [QT]): one test program, one ctest entry,
# started by COMMAND, if there is one. With QT the program has a QApplication on the offscreen platform
# (unless QT_QPA_PLATFORM says otherwise).
function(quinzolith_test name)
  cmake_parse_arguments(ARG "QT" "" "SOURCES;LINKS;UNDER" ${ARGN})
  if(ARG_QT)
    list(APPEND ARG_SOURCES ${PROJECT_SOURCE_DIR}/tests/QtMain.cpp)
    list(APPEND ARG_LINKS Qt6::Widgets Qt6::Test GTest::gtest)
  else()
    list(APPEND ARG_LINKS GTest::gtest_main)
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE quinzolith_flags quinzolith_warnings ${ARG_LINKS})
  quinzolith_include_root(${name} tests)
  target_compile_definitions(${name} PRIVATE
    QUINZOLITH_SOURCE_DIR="${PROJECT_SOURCE_DIR}" QUINZOLITH_TREE="${QUINZOLITH_TREE}")
  add_test(NAME ${name} COMMAND ${ARG_UNDER} $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
