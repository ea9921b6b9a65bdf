#pragma once

#include <QDateTime>
#include <QMainWindow>
#include <memory>

#include "viewer/HelpBook.h"

class HelpBrowser;
class NavigationPane;

/// The viewer's window: contents, index and search on the left, the page on the right.
///
/// A help file that is missing, foreign or damaged is told of in the window itself.
class HelpWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit HelpWindow(const QString& helpFile);
  ~HelpWindow() override;

  /// Shows a topic's page; the start page for 0. A help file that has changed is read anew.
  void showTopic(int topic);

 private:
  void readBook();
  void buildToolBar();
  QAction* addTool(const QString& text, const QString& name, const QKeySequence& key,
                   const std::function<void()>& act);
  void openOutside(const QUrl& address);

  QString helpFile_;
  QDateTime readAt_;
  std::unique_ptr<HelpBook> book_;
  HelpBrowser* browser_;
  NavigationPane* navigation_;
};
