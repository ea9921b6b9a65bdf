#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>

/// How puzzle files reach the disk. The model makes and reads bytes; a store moves them. What the
/// program uses is put in by Wiring; streamPuzzleStore() needs nothing but the standard library.
struct PuzzleStore {
  /// True for an ordinary file (or a link to one) whose name does not begin with a dot.
  /// Errors: std::exception when the question itself fails (a malformed path, no permission).
  std::function<bool(const std::filesystem::path&)> exists;

  /// The file's bytes, at most `ceiling` of them.
  /// Errors: std::exception with a readable reason.
  std::function<std::string(const std::filesystem::path&, std::size_t ceiling)> read;

  /// Makes `bytes` the start of the file, which is created when missing. What a longer file holds
  /// behind them stays, up to `longestTail` bytes.
  /// Errors: std::length_error for a longer tail; std::exception with a readable reason.
  std::function<void(const std::filesystem::path&, const std::string& bytes,
                     std::size_t longestTail)>
      write;
};

/// A store on standard streams. It writes in place: a failure may leave a file half written.
PuzzleStore streamPuzzleStore();
