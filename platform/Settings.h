#pragma once

#include <string>

/// The per-user settings store. Keys live in sections, sections in applications; every value is a
/// text in UTF-8. The store is a file on Linux and the registry on Windows.
namespace Settings {

/// The application under which this program keeps its settings: maker, backslash, title.
std::string application();

/// The text stored under a key, or `otherwise` where there is none or the store cannot be read.
std::string get(const std::string& application, const std::string& section, const std::string& key,
                const std::string& otherwise);

/// Stores a text. A store that cannot be written keeps what it had, without a word.
void save(const std::string& application, const std::string& section, const std::string& key,
          const std::string& value);

/// Keeps the settings in an ini file of this name instead: for tests. Empty: the user's own again.
void useFile(const std::string& file);

}  // namespace Settings
