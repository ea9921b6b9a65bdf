#include "platform/Menus.h"

namespace Menus {

QMenu* addMenu(QMenuBar* bar, const char* name, const QString& caption) {
  QMenu* menu = bar->addMenu(caption);
  menu->setObjectName(name);
  return menu;
}

QAction* addItem(QMenu* menu, const char* name, const QString& caption,
                 const std::function<void()>& action) {
  QAction* item = menu->addAction(caption);
  item->setObjectName(name);
  item->setMenuRole(QAction::NoRole);
  QObject::connect(item, &QAction::triggered, menu, action);
  return item;
}

QAction* addSeparator(QMenu* menu, const char* name) {
  QAction* separator = menu->addSeparator();
  separator->setObjectName(name);
  return separator;
}

}  // namespace Menus
