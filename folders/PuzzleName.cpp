#include "folders/PuzzleName.h"

#include <algorithm>

bool isPuzzleName(const std::filesystem::path& name) {
  // ASCII letters only, whatever the locale.
  std::string extension = name.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return extension == kPuzzleExtension && name.filename().string().front() != '.';
}
