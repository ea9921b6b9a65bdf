// Makes the pictures of the program: quinzolith-pictures SOURCE_FOLDER, or --measure for the
// textures' distances.
#include <QGuiApplication>
#include <cstdio>
#include <exception>
#include <string_view>

#include "art/Drawings.h"
#include "art/Measure.h"
#include "art/PictureList.h"

namespace {

constexpr const char* kUsage =
    "Usage: quinzolith-pictures SOURCE_FOLDER   writes all pictures into the source tree\n"
    "       quinzolith-pictures --measure       prints how far apart the textures' colours are\n";

void makeAll(const std::filesystem::path& source) {
  for (const pictures::PictureFile& picture : pictures::allPictures(source))
    pictures::writePicture(picture.make(), source / picture.file);
  pictures::writeText(pictures::programIconSvg(), source / "pictures/quinzolith.svg");
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view argument = argc == 2 ? argv[1] : "";
  if (argument.empty() || (argument[0] == '-' && argument != "--measure")) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  try {
    if (argument == "--measure") {
      std::fputs(pictures::distanceReport().c_str(), stdout);
    } else {
      makeAll(argument);
    }
  } catch (const std::exception& error) {
    std::fprintf(stderr, "quinzolith-pictures: %s\n", error.what());
    return 1;
  }
  return 0;
}
