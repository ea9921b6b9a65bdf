#pragma once

#include <QWidget>

/// Puts a window before all others and gives it the keyboard, because the user has just asked for
/// it in another program. Window managers keep programs from doing so on their own account; on X11
/// the request is therefore made as one of the user's.
void bringToFront(QWidget& window);
