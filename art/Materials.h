#pragma once

#include "art/Slab.h"
#include "drawing/AtlasLayout.h"

/// The sixteen textures of the game: twelve materials in the order of the piece types, the empty
/// cell, and three to spare.
///
/// Their mean colours were found by a search that made the smallest CIEDE2000 between any two of
/// them (and the empty cell, and the board's background) as large as it could for plain sight and
/// for the three kinds of colour-blindness at once, each material keeping within its own range of
/// hue, chroma and lightness. Features are broad: a board cell is often but 12 pixels wide, taken
/// from the texture without smoothing.
namespace pictures {

/// The mean colour that a texture aims at.
Lab meanColour(int texture);
/// The texture's material. Made once, then kept.
const Slab& material(int texture);

namespace materials {
Slab pine();
Slab lapis();
Slab walnut();
Slab malachite();
Slab redCloth();
Slab marble();
Slab amethyst();
Slab copper();
Slab turquoise();
Slab steel();
Slab rose();
Slab bamboo();
Slab socket();
Slab bricks();
Slab grass();
Slab swirl();
}  // namespace materials

}  // namespace pictures
