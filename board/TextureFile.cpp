#include "board/TextureFile.h"

#include "platform/Program.h"

std::filesystem::path textureFile(int colorDepth) {
  return Program::installationFolder() / "tiles" /
         (colorDepth >= Program::kDeepColour ? "tiles.jpg" : "tiles.bmp");
}
