#pragma once

#include <QPoint>

/// Where the cursor pictures point, in pixels of the plain 32 x 32 pictures (twice that in the
/// doubled ones). The clear cursor's hot spot is any.
namespace pictures {

inline constexpr QPoint kHand{16, 16};    ///< hand.png: the palm
inline constexpr QPoint kPointer{11, 2};  ///< pointer.png: the tip of the forefinger

}  // namespace pictures
