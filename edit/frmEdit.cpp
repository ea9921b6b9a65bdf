#include "edit/frmEdit.h"

#include <QMenuBar>

namespace {
Form::Design design() {
  Form::Design d;
  d.title = "Quinzolith - Edit Mode";
  d.client = QSizeF(9108, 6516);
  d.back = QColor(192, 192, 255);
  return d;
}
}  // namespace

frmEdit::frmEdit() : Form(design()) {}

void frmEdit::BuildControls() {
  QMenu* file = MenuBar()->addMenu("File");
  file->setObjectName("mnuFile");
  QAction* play = file->addAction("Play...");
  play->setObjectName("mnuFilePlay");
  QObject::connect(play, &QAction::triggered, file, [this] {
    if (Unload() && ShowPlay) ShowPlay();
  });
  QAction* close = file->addAction("Close");
  close->setObjectName("mnuFileClose");
  QObject::connect(close, &QAction::triggered, file, [this] { Unload(); });
}
