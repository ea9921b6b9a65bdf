#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "files/DiskCalls.h"

/// Files that are either the old ones or the new ones, whole, whatever fails.
///
/// Errors: std::system_error or std::runtime_error; what() is a text for the user.
namespace SafeFile {

/// The calls that everything here makes; a test puts failing ones in.
extern DiskCalls disk;

/// True for an ordinary file, or a link to one, whose name does not begin with a dot.
/// Errors: the question itself fails (a name too long, a folder that may not be searched).
bool exists(const std::filesystem::path& file);

/// The file's first bytes, at most `ceiling` of them; no more than that is read or held.
/// Errors: no ordinary file, not readable.
std::string read(const std::filesystem::path& file, std::size_t ceiling);

/// Makes `bytes` the whole content of the file, which is created when missing.
///
/// The bytes go into a new file beside the target (its name begins with a dot), reach the disk, and
/// take the target's name; then the folder reaches the disk. So a failure, or an end of the program
/// at any moment, leaves the old bytes or the new ones; a killed program may leave the new file
/// beside them. A symbolic link stays a link: what it points to is replaced. Permissions stay,
/// owner and group where the user may set them; a second hard link keeps the old bytes.
///
/// Only where the folder does not allow a new file or the renaming, an existing file is written in
/// place. There a failure puts the old bytes back, and only a kill may leave a mixture.
///
/// Errors: the target is read-only or no ordinary file, or a call to the disk failed. Where the
///         last step failed (the folder could not reach the disk), the new bytes are already there.
void write(const std::filesystem::path& file, const std::string& bytes);

}  // namespace SafeFile
