#pragma once

/// How the texture picture (tiles/tiles.jpg and .bmp) is laid out: squares of one size, texture t
/// in column t mod kColumns and row t div kColumns. 0 to 11 belong to the piece types, 12 is the
/// empty cell, 13 to 15 are spare.
namespace AtlasLayout {

inline constexpr int kColumns = 4;
inline constexpr int kTextures = 16;
inline constexpr int kEmptyCell = 12;

}  // namespace AtlasLayout
