#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/Program.h"
#include "platform/Settings.h"

namespace machine {

/// An installed tree with small puzzles of the test's own, and a player's folder that each run
/// finds as the first one did.
class Installation {
 public:
  Installation();

  void renew();  ///< the player's folder and settings, and the program's clock and random numbers

  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path user() const { return folder_ / "User"; }
  /// What can be named in a file dialog; the last ones do not exist yet.
  std::vector<std::filesystem::path> names() const;
  /// All puzzles on the disk.
  std::vector<std::filesystem::path> puzzles() const;

 private:
  QTemporaryDir temporary_;
  std::filesystem::path folder_;
  Replacement<std::function<std::filesystem::path()>> installed_{Program::programFolder,
                                                                 [this] { return folder_; }};
  std::optional<Replacement<Settings::Place>> settings_;
  std::optional<Replacement<std::function<double()>>> clock_;
};

}  // namespace machine
