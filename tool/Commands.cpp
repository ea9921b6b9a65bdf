#include "tool/Commands.h"

namespace puzzle {

namespace {

constexpr std::size_t kAny = 100000;
constexpr Option kPieces{"pieces", "LETTERS",
                         "the pieces that may be used, such as FILNP, or 'all' (one each)"};
constexpr Option kRepeats{"repeats", "",
                          "allow any number of each of these pieces, or of all twelve"};
constexpr Option kLimit{"limit", "NODES", "give up after so many nodes"};
constexpr Option kQuiet{"quiet", "", "no progress on a long run"};
constexpr Option kSeed{"seed", "N", "repeat the run that had this seed"};

}  // namespace

const std::vector<Command>& commands() {
  static const std::vector<Command> all{
      {"make",
       "DRAWING PUZZLE",
       "makes a puzzle file from a drawing",
       "The shape is tiled by the letters drawn, the pieces named or pieces that are all "
       "different.",
       2,
       2,
       {kPieces,
        kRepeats,
        {"locked", "", "write a standard puzzle that the editor refuses"},
        kSeed,
        kLimit,
        kQuiet},
       makeCommand},
      {"show",
       "FILE",
       "draws a puzzle in the terminal",
       "FILE is a puzzle file or a drawing; the result is a drawing. Letters are split into pieces "
       "by a search, which gives up after 50 million nodes if no limit is given.",
       1,
       1,
       {{"json", "", "for programs: one JSON object"},
        {"color", "", "coloured cells"},
        {"shape", "", "the shape without the pieces"},
        kLimit,
        kQuiet},
       showCommand},
      {"render",
       "FILE PICTURE",
       "paints a puzzle as a PNG in the game's textures",
       "What a drawing without letters shows is its shape. A picture has at most 67 million "
       "pixels. "
       "Searches give up as those of show do.",
       2,
       2,
       {{"tile", "PIXELS", "the edge of a cell, 30 if not given"},
        {"shape", "", "the shape without the pieces"},
        {"solution", "", "solve a drawing that shows only the shape"},
        {"whole", "", "the whole board, not only the box of the shape"},
        kLimit,
        kQuiet},
       renderCommand},
      {"check",
       "FILE...",
       "tells what is wrong with puzzle files",
       "One line a problem; nothing for valid files.",
       1,
       kAny,
       {},
       checkCommand},
      {"solve",
       "FILE",
       "finds a solution of a drawing or puzzle, or counts all",
       "A drawing may be larger than the board, up to 30 cells one way. Letters are kept, and the "
       "rest is solved or counted; a drawing of nothing but letters stands for its shape when "
       "solutions are counted.",
       1,
       1,
       {kPieces,
        kRepeats,
        {"count", "", "count all solutions"},
        {"all", "", "print all solutions"},
        {"up-to-symmetry", "", "one of those that the shape's symmetries make equal"},
        kLimit,
        kQuiet},
       solveCommand},
      {"prove",
       "FILE...",
       "prints a table of pieces, solutions and search nodes",
       "Solutions are counted up to symmetry; nodes are those of the general search.",
       1,
       kAny,
       {kLimit, kQuiet},
       proveCommand},
      {"generate",
       "[PUZZLE]",
       "makes new puzzles",
       "Without PUZZLE, drawings of the solutions are printed.",
       0,
       1,
       {{"number", "N", "so many pieces, 6 if not given"},
        {"width", "CELLS", "the box, 12 if not given"},
        {"height", "CELLS", "the box, 12 if not given"},
        {"symmetric", "", "the shape is its own mirror image"},
        {"unique", "", "its pieces have exactly one solution, up to symmetry"},
        {"tries", "N", "shapes to try, 10000 if not given"},
        kLimit,
        kSeed},
       generateCommand}};
  return all;
}

}  // namespace puzzle
