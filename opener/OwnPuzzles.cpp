#include "opener/OwnPuzzles.h"

#include <stdexcept>

#include "drafts/PuzzleFile.h"
#include "files/SafeFile.h"
#include "folders/PuzzleName.h"
#include "model/PuzzleFormat.h"

namespace fs = std::filesystem;

namespace OwnPuzzles {

namespace {

std::string puzzleIn(const fs::path& file) {
  std::string bytes = SafeFile::read(file, kMostPuzzleBytes);
  const auto problems = puzzle::problemsOf(bytes);
  if (problems.empty()) return bytes;
  throw std::runtime_error(std::string(PuzzleFormat::kInvalid) + "\n" + problems.front());
}

fs::path listedName(const fs::path& file) {
  std::string name = file.filename().string();
  name.erase(0, name.find_first_not_of('.'));
  return isPuzzleName(name) ? name : name + kPuzzleExtension;
}

/// The file in the folder that has the name, whatever the case of its extension.
fs::path sameIn(const fs::path& folder, const fs::path& name) {
  for (const auto& entry : fs::directory_iterator(folder))
    if (isPuzzleName(entry.path()) && entry.path().stem() == name.stem()) return entry.path();
  return folder / name;
}

}  // namespace

fs::path add(const fs::path& file, const fs::path& user, const Question& mayReplace) {
  const std::string bytes = puzzleIn(file);
  if (!fs::is_directory(user)) throw std::runtime_error("There is no folder for your puzzles.");
  const fs::path place = sameIn(user, listedName(file));
  const bool taken = fs::exists(fs::symlink_status(place));
  if (taken && SafeFile::exists(place) && SafeFile::read(place, kMostPuzzleBytes) == bytes)
    return place.filename();
  if (taken && !mayReplace(place)) return {};
  SafeFile::write(place, bytes);
  return place.filename();
}

}  // namespace OwnPuzzles
