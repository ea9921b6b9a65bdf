#pragma once

#include <filesystem>
#include <string>

namespace SafeFile {

/// Sends bytes to a device or pipe (/dev/stdout, a named pipe) in their order. False, with nothing
/// done, when no such thing has the name; it may be a file then, or nothing.
///
/// Only a device or pipe of this user or of the system's administrator is written to, and only such
/// a one's link is followed. Waits, as any program does, until a pipe has a reader.
/// Errors: std::system_error; std::runtime_error where a file took its place meanwhile.
bool send(const std::filesystem::path& file, const std::string& bytes);

}  // namespace SafeFile
