#include "board/BoardLayout.h"
#include "edit/frmEdit.h"
#include "platform/Menus.h"
#include "platform/Program.h"
#include "services/basHTMLHelp.h"

void frmEdit::buildFileMenu() {
  QMenu* file = Menus::addMenu(MenuBar(), "mnuFile", "File");
  const auto add = [file](const char* name, const char* caption, const char* keys, auto action) {
    Menus::addItem(file, name, caption, action)->setShortcut(QKeySequence(keys));
  };
  add("mnuFileNew", "New", "Ctrl+N", [this] { mnuFileNew_Click(); });
  add("mnuFileOpen", "Open...", "Ctrl+O", [this] { mnuFileOpen_Click(); });
  Menus::addSeparator(file, "mnuFileSep1");
  add("mnuFileSave", "Save", "Ctrl+S", [this] { mnuFileSave_Click(); });
  add("mnuFileSaveAs", "Save as...", "Ctrl+Shift+S", [this] { mnuFileSaveAs_Click(); });
  Menus::addSeparator(file, "mnuFileSep2");
  add("mnuFilePlay", "Play...", "", [this] { mnuFilePlay_Click(); });
  Menus::addSeparator(file, "mnuFileSep3");
  for (std::int16_t i = 0; i < kRecentFiles; ++i)
    mnuFileRecent_[static_cast<std::size_t>(i)] =
        Menus::addItem(file, qPrintable(QString("mnuFileRecent%1").arg(i)), "Recent",
                       [this, i] { mnuFileRecent_Click(i); });
  mnuFileRecent_.back() =
      Menus::addSeparator(file, qPrintable(QString("mnuFileRecent%1").arg(kRecentFiles)));
  for (const auto& item : mnuFileRecent_) item->setVisible(false);
  add("mnuFileClose", "Close", "", [this] { Unload(); });
}

void frmEdit::buildHelpMenu() {
  basHTMLHelp::AddHelpMenu(*this, basHTMLHelp::Topic::Editor, "mnuHelpCreate",
                           "How to create puzzles...", [this] { mnuHelpAbout_Click(); });
}

void frmEdit::SetCaption(int item, const std::string& text) {
  QString caption = QString::fromStdString(text);
  const qsizetype behindMnemonic = caption.indexOf('&') + 1;
  caption = caption.left(behindMnemonic) + caption.mid(behindMnemonic).replace("&", "&&");
  mnuFileRecent_.at(static_cast<std::size_t>(item))->setText(caption);
}

void frmEdit::SetVisible(int item, bool visible) {
  mnuFileRecent_.at(static_cast<std::size_t>(item))->setVisible(visible);
}

void frmEdit::mnuFilePlay_Click() {
  Unload();
  if (!fActivated_ && ShowPlay) ShowPlay();
}

void frmEdit::mnuHelpAbout_Click() {
  if (Program::ColorDepth < Program::kDeepColour) BoardLayout::cover(*fraCover_);
  if (ShowAbout) ShowAbout(*this);
  if (Program::ColorDepth >= Program::kDeepColour || !Loaded()) return;
  Grid->BackTexture(QImage());
  fraCover_->hide();
}
