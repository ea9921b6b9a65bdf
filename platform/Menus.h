#pragma once

#include <QMenu>
#include <QMenuBar>
#include <functional>

/// Menus whose items go by the names under which the program knows them. Captions are shown as they
/// are, but for "&", which underlines the next character.
namespace Menus {

QMenu* addMenu(QMenuBar* bar, const char* name, const QString& caption);
QAction* addItem(QMenu* menu, const char* name, const QString& caption,
                 const std::function<void()>& action);
QAction* addSeparator(QMenu* menu, const char* name);

}  // namespace Menus
