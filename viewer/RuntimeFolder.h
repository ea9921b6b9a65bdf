#pragma once

#include <QString>

/// The folder that the user's session has for sockets and locks (XDG_RUNTIME_DIR). Empty unless it
/// is an absolute path to a folder that belongs to the user and is closed to everybody else: in any
/// other place somebody else could answer.
QString ownRuntimeFolder();
