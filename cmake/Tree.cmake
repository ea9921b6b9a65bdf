# The installed tree, laid out inside the build folder too, so that the program runs there as it does
# installed:
#   Kelvo Software/Quinzolith/            the programs, puzzles/, tiles/, the help file, User/
#   Kelvo Software/Common Files/MIDI/     Correct/, Wrong/, Song/

set(QUINZOLITH_FOLDER "Kelvo Software/Quinzolith")
set(QUINZOLITH_MIDI_FOLDER "Kelvo Software/Common Files/MIDI")
set(QUINZOLITH_TREE "${PROJECT_BINARY_DIR}/tree/${QUINZOLITH_FOLDER}")

add_custom_target(tree ALL COMMENT "Laying out the data beside the programs")

# quinzolith_data(FOLDER FILES...): files that ship, in FOLDER of the tree (relative to its root).
function(quinzolith_data folder)
  set(target_folder "${PROJECT_BINARY_DIR}/tree/${folder}")
  string(MAKE_C_IDENTIFIER "tree ${folder}" part)
  add_custom_target(${part}
    COMMAND ${CMAKE_COMMAND} -E make_directory "${target_folder}"
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${ARGN} "${target_folder}"
    VERBATIM)
  add_dependencies(tree ${part})
  install(FILES ${ARGN} DESTINATION "${folder}")
endfunction()
