#pragma once

#include <algorithm>
#include <map>
#include <stdexcept>

#include "model/PuzzleStore.h"

/// A store without a disk, for thousands of damaged files.
class MemoryStore {
 public:
  std::map<std::filesystem::path, std::string> files;
  int reads = 0;
  std::size_t lastCeiling = 0;

  PuzzleStore store() {
    return {[this](const std::filesystem::path& file) { return files.count(file) != 0; },
            [this](const std::filesystem::path& file, std::size_t ceiling) {
              ++reads;
              lastCeiling = ceiling;
              const std::string& bytes = files.at(file);
              return bytes.substr(0, std::min(ceiling, bytes.size()));
            },
            [this](const std::filesystem::path& file, const std::string& bytes,
                   std::size_t longestTail) {
              const std::string& old = files[file];
              if (old.size() > bytes.size() + longestTail) throw std::length_error("too large");
              files[file] = bytes + (old.size() > bytes.size() ? old.substr(bytes.size()) : "");
            }};
  }
};
