#include "tool/Commands.h"

#include "tool/Rating.h"

namespace puzzle {

namespace {

constexpr std::size_t kAny = 100000;
constexpr OptionSpec kPieces{"pieces", "LETTERS",
                             "the pieces that may be used, such as FILNP, or 'all' (one each)"};
constexpr OptionSpec kRepeats{"repeats", "", "any number of the pieces named, or of all"};
constexpr OptionSpec kLimit{"limit", "NODES",
                            "give up after this many pieces laid (nodes of the search)"};
constexpr OptionSpec kQuiet{"quiet", "", "no progress on a long run"};
constexpr OptionSpec kSeed{"seed", "N", "repeat the run that had this seed"};

}  // namespace

const std::vector<OptionSpec>& standAlone() {
  static const std::vector<OptionSpec> all{
      {"help|--help|-h", "[COMMAND]", "tells the commands, or the options of one"},
      {"--version|-V", "", "tells the version"},
      {"--man", "", "prints the manual page"},
      {"--completion", kShells, "prints a script that completes these words in a shell"}};
  return all;
}

const std::vector<Command>& commands() {
  static const std::vector<Command> all{
      {"make",
       "DRAWING PUZZLE",
       "makes a puzzle file from a drawing",
       "The shape, at most 12 x 12 cells and 15 pieces, is tiled by the letters drawn, the pieces "
       "named or pieces that are all different. If PUZZLE is a folder, the file there is named by "
       "the drawing's title, else by the drawing's file, since the game shows the file's name. A "
       "locked puzzle is written over with --locked only.",
       2,
       2,
       {kPieces,
        kRepeats,
        {"locked", "", "write a standard puzzle, which the editor refuses to open"},
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
       "FILE... PICTURE",
       "paints puzzles as PNG, SVG or PDF",
       "A drawing without letters shows its shape. The picture's name tells the format. A FILE "
       "that is a folder stands for the puzzles in it. A PDF has as many puzzles on a page as "
       "there is room for; an SVG is as large as its cells ask for, to be printed or cut. "
       "A picture has at most 67 million pixels. Searches give up as those of show do.",
       2,
       kAny,
       {{"shape", "", "the shape without the pieces"},
        {"solution", "", "solve a drawing that shows only the shape"},
        {"outlines", "", "lines to cut along instead of the game's textures"},
        {"tile", "PIXELS", "the edge of a cell in a PNG, 30 if not given"},
        {"cell", "MM",
         "the edge of a cell in an SVG or PDF, in millimetres; 15 if not given, 7 for many "
         "puzzles"},
        {"whole", "", "in a PNG of one puzzle: the whole board, not only the box of the shape"},
        {"sheet", "", "many puzzles in one PNG or SVG"},
        {"columns", "N", "puzzles side by side on a sheet, 6 if not given"},
        {"no-titles", "", "no titles on a sheet or page"},
        {"paper", kPapers, "of a PDF, A4 if not given"},
        {"format", "png|svg|pdf", "whatever the picture's name ends in"},
        kLimit,
        kQuiet},
       renderCommand},
      {"check",
       "FILE...",
       "tells what is wrong with puzzle files",
       "A line for each problem; nothing for valid files.",
       1,
       kAny,
       {},
       checkCommand},
      {"solve",
       "FILE",
       "finds a solution of a drawing or puzzle, or counts all",
       "A drawing may be larger than the board, up to 30 cells one way. Letters are kept, and the "
       "rest is solved or counted; a drawing of nothing but letters stands for its shape when "
       "solutions are counted. A long count that goes from solution to solution uses all "
       "processor cores unless it has a limit; the numbers are the same on any machine.",
       1,
       1,
       {kPieces,
        kRepeats,
        {"count", "", "count all solutions"},
        {"all", "", "print all solutions"},
        {"up-to-symmetry", "", "count solutions that turn or mirror into each other once"},
        kLimit,
        kQuiet},
       solveCommand},
      {"prove",
       "FILE...",
       "prints a table of pieces, solutions and search nodes",
       "Solutions that turn or mirror into each other count once; nodes are those of the general "
       "search. A drawing that names no pieces is counted with all that are different, as solve "
       "does.",
       1,
       kAny,
       {kPieces, kRepeats, kLimit, kQuiet},
       proveCommand},
      {"rate",
       "FILE...",
       "tells how hard puzzles are for a person",
       "The rating grows by one when twice as many pieces must be laid until the puzzle is solved "
       "by somebody who tries the tightest place first. Beside it stand what it comes from: all "
       "solutions, the pieces laid on the average, how many of a solution's pieces are forced, "
       "since nothing else fits there, and after how many wrong pieces a dead end shows.",
       1,
       kAny,
       {kPieces, kRepeats, kLimit},
       rateCommand},
      {"generate",
       "[FILE|FOLDER]",
       "invents new puzzles",
       "One puzzle is written as a drawing if FILE ends in .txt or is not given, else as a puzzle "
       "file. With --puzzles=N a FOLDER gets N puzzle files, named by their seeds; what is there "
       "already is kept. An interrupt (Ctrl+C) keeps what was found.",
       0,
       1,
       {{"number", "N", "the pieces of a puzzle, 6 if not given"},
        {"width", "CELLS", "the largest width, 12 if not given"},
        {"height", "CELLS", "the largest height, 12 if not given"},
        {"style", kStyles,
         "a shape grown at random, its own mirror image left to right or both ways, with a hole, "
         "or like a letter or digit"},
        {"symmetric", "", "the same as --style=mirror"},
        {"glyph", "C", "the letter or digit of --style=glyph, any if not given"},
        {"unique", "", "its pieces have exactly one solution, up to symmetry"},
        {"level", kLevels, "as hard as the standard puzzles of this level"},
        {"tries", "N", "shapes to try for a puzzle, 10000 if not given"},
        {"puzzles", "N", "write this many puzzles into FOLDER"},
        {"part", "K/N", "of --puzzles only the K-th of N shares; all shares make the whole run"},
        kLimit,
        kSeed},
       generateCommand}};
  return all;
}

}  // namespace puzzle
