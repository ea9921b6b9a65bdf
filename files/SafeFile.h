#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "files/DiskCalls.h"
#include "seams/Seam.h"

/// Files that are either the old ones or the new ones, whole, whatever fails.
///
/// Why not QSaveFile, which also writes beside the target and renames: it follows every link,
/// whoever planted it; where the folder refuses the rename it opens the name anew, and with that
/// fallback its commit() says yes even on a full device; it does not bring the folder to the disk;
/// its calls cannot be made to fail one by one; and here no toolkit is needed.
///
/// Errors: std::system_error or std::runtime_error; what() is a text for the user.
namespace SafeFile {

/// The calls that everything here makes.
extern Seam<DiskCalls> disk;

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
/// beside them, which the next save into the folder removes when it is older than an hour.
/// Permissions stay, owner and group where the user may set them; a new file gets `mode`, less what
/// the user's mask takes away. A second hard link keeps the old bytes.
///
/// Links stay links, and what they point to is replaced; only the user's own links are followed
/// (see Place). The old file is opened once, and what was opened is compared with what was looked
/// at, so that nothing that others put into its place meanwhile is read or written.
///
/// Only where the folder does not allow a new file or the renaming, an existing file is written in
/// place, through what was opened. There a failure puts the old bytes back, and only a kill may
/// leave a mixture; a file that cannot be read, is larger than 65 MiB, or has a name in another
/// user's folder besides one elsewhere is refused.
///
/// Signals that ask the program to end wait until the save is done.
///
/// Errors: the target is read-only or no ordinary file, a link of another user, or a call to the
///         disk failed. Where the last step failed (the folder could not reach the disk), the new
///         bytes are already there.
void write(const std::filesystem::path& file, const std::string& bytes, mode_t mode = 0666);

/// As write, but what a longer file holds behind `bytes` stays, up to `longestTail` bytes.
/// Errors: as write; std::length_error for a longer tail; a tail that cannot be read.
void writeOver(const std::filesystem::path& file, const std::string& bytes,
               std::size_t longestTail);

}  // namespace SafeFile
