#pragma once

#include <QWidget>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "seams/Seam.h"

/// The platform's functions by the names under which desktop programmers know them. Screen
/// positions are in device pixels of the screen that shows the given widget.
namespace basKelvoWinAPI {

struct POINT {
  std::int32_t x, y;
  bool operator==(const POINT&) const = default;
};

struct RECT {
  std::int32_t left, top, right, bottom;  ///< right and bottom are the first pixels outside
};

inline constexpr int SM_CYSIZE = 31;  ///< height of a caption button, device pixels
inline constexpr int BITSPIXEL = 12;  ///< bits per pixel

POINT GetCursorPos(const QWidget& context);
/// Best effort: some display servers do not let programs place the cursor. In any case a mouse move
/// follows in the window of `context`, at the place where it then is.
void SetCursorPos(int x, int y, const QWidget& context);
RECT GetWindowRect(const QWidget& widget);
/// The window that the user is working in, or null.
QWidget* GetActiveWindow();
/// Knows SM_CYSIZE; 0 for any other index.
int GetSystemMetrics(int index);
/// Knows BITSPIXEL; 0 for any other index.
int GetDeviceCaps(const QWidget& window, int index);

/// The system's program-files folder: two levels above the installation folder.
std::filesystem::path GetProgramFilesDir();

/// Opens a web or a mail address, given as raw, unencoded text. Knows the verb "open", takes no
/// parameters and no folder; the show command is the opened program's own business. A result of 32
/// or less means failure; a larger one, that it was started.
extern Seam<std::function<int(QWidget* hwnd, const std::string& lpOperation,
                              const std::string& lpFile, const std::string& lpParameters,
                              const std::string& lpDirectory, int nShowCmd)>>
    ShellExecuteA;

}  // namespace basKelvoWinAPI
