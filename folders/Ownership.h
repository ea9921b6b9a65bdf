#pragma once

#include <filesystem>

/// Whether a file or folder belongs to this user and may be written by nobody else (whom the
/// administrator is not counted to). A group of this user alone may, as some systems give every
/// user one; not so where an access list goes beyond owner and group. A link must be the user's or
/// the administrator's, and what it leads to counts. False for what is not there.
bool isOnlyThisUsers(const std::filesystem::path& place);
