#pragma once

#include <string>

#include "platform/SettingsText.h"
#include "seams/Seam.h"

/// The per-user settings store: one file of the user's own, and no other is ever read. Keys live in
/// sections, sections in applications; every value is a text in UTF-8.
///
/// File:   `~/.config/MAKER/TITLE.conf` (below $XDG_CONFIG_HOME if that is set), of lines
///         "[section]" and "key=text", percent-encoded. Replaced as a whole (files/SafeFile.h), so
///         reading needs no lock; two programs that write at once wait for each other by a lock
///         file beside it.
/// Errors: nobody waits longer than 200 ms. A file that cannot be read counts as empty; where it
///         cannot be written or locked, all that is saved from then on holds until the program's
///         end. That is said once, in a line on the standard error stream.
///
/// Why not QSettings: it waits for a lock without end, opens a pipe in the file's place, and its
/// own format also holds whole objects, whose damage ends the program.
namespace Settings {

/// The application under which this program keeps its settings: maker, backslash, title.
std::string application();

/// The text stored under a key, or `otherwise` where there is none or the store cannot be read.
std::string get(const std::string& application, const std::string& section, const std::string& key,
                const std::string& otherwise);

/// Stores a text.
void save(const std::string& application, const std::string& section, const std::string& key,
          const std::string& value);

/// Where the settings are, as a program that has just started finds them.
struct Place {
  std::string file = {};    ///< empty: the user's own
  bool looked = false;      ///< at the lock
  bool unwritable = false;  ///< nothing is stored any more in this run
  SettingsTexts kept = {};  ///< what was saved since
};
extern Seam<Place> place;

}  // namespace Settings
