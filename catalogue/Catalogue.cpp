#include "catalogue/Catalogue.h"

namespace Catalogue {

namespace {

constexpr Entry kEntries[] = {
    {kNovice, "blue circle", "Blue Circle", "bluecircle"},
    {kNovice, "critter", "Tobin's Critter", "critter"},
    {kNovice, "ten", "Ten", "ten"},
    {kNovice, "plus", "Plus", "plus"},
    {kNovice, "smile", "Smile", "smile"},
    {kNovice, "coffee", "Coffee Cup", "coffee"},
    {kNovice, "tiny triangle", "Tiny Triangle", "tinytriangle"},
    {kNovice, "tiny box", "Tiny Box", "tinybox"},
    {kNovice, "donut", "Donut", "donut"},
    {kEasy, "pento01", "Pentomino Y", "pento01"},
    {kEasy, "pento02", "Pentomino I", "pento02"},
    {kEasy, "pento03", "Pentomino L", "pento03"},
    {kEasy, "pento04", "Pentomino W", "pento04"},
    {kEasy, "pento05", "Pentomino Z", "pento05"},
    {kEasy, "pento06", "Pentomino P", "pento06"},
    {kEasy, "pento10", "Pentomino N", "pento10"},
    {kEasy, "pento11", "Pentomino U", "pento11"},
    {kEasy, "pento12", "Pentomino T", "pento12"},
    {kIntermediate, "triangle", "Medium Triangle", "triangle"},
    {kIntermediate, "small box", "Medium Box", "smallbox"},
    {kIntermediate, "arrow #1", "Arrow", "arrow"},
    {kIntermediate, "q", "Quinz", "q"},
    {kIntermediate, "o", "olith", "o"},
    {kIntermediate, "bigger box", "Large Box", "largebox"},
    {kIntermediate, "face", "Face", "face"},
    {kIntermediate, "rocket", "Rocket", "rocket"},
    {kIntermediate, "eight", "Eight", "eight"},
    {kExpert, "large triangle", "Large Triangle", "largetriangle"},
    {kExpert, "square", "Square", "square"},
    {kExpert, "plane", "Plane", "plane"},
    {kExpert, "pento07", "Pentomino V", "pento07"},
    {kExpert, "pento08", "Pentomino F", "pento08"},
    {kExpert, "pento09", "Pentomino X", "pento09"},
    {kExpert, "question", "Question", "question"},
    {kExpert, "christmas", "Christmas Tree", "christmas"},
    {kExpert, "big house", "House", "house"},
};

}  // namespace

std::span<const Entry> entries() {
  return kEntries;
}

}  // namespace Catalogue
