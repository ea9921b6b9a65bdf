#pragma once

#include <filesystem>

/// The program's texture file for a screen of that many bits per pixel.
std::filesystem::path textureFile(int colorDepth);
