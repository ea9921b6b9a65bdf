#include "play/UserPuzzles.h"

#include <QCollator>
#include <algorithm>

#include "folders/PuzzleName.h"

namespace fs = std::filesystem;

namespace {

/// Comparing two texts by a language's rules takes long; their keys are made once.
struct Sortable {
  QCollatorSortKey key;
  fs::path name;
};

}  // namespace

std::vector<fs::path> puzzlesIn(const fs::path& folder) {
  const QCollator language;
  std::vector<Sortable> found;
  std::error_code unreadable;
  fs::directory_iterator entry(folder, unreadable);
  for (; !unreadable && entry != fs::directory_iterator(); entry.increment(unreadable)) {
    std::error_code gone;
    fs::path name = entry->path().filename();
    if (isPuzzleName(name) && entry->is_regular_file(gone))
      found.push_back({language.sortKey(QString::fromStdString(name.string())), std::move(name)});
  }
  std::sort(found.begin(), found.end(),
            [](const Sortable& a, const Sortable& b) { return a.key < b.key; });
  std::vector<fs::path> names;
  for (Sortable& puzzle : found) names.push_back(std::move(puzzle.name));
  return names;
}
