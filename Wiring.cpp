#include "Wiring.h"

#include <QApplication>
#include <QIcon>

#include "model/basTiles.h"
#include "platform/Pointer.h"
#include "platform/Program.h"
#include "platform/SafeFile.h"
#include "play/basStartup.h"
#include "services/basHTMLHelp.h"

namespace {

QIcon programIcon() {
  QIcon icon;
  for (int size : {16, 22, 24, 32, 48, 64, 128, 256})
    icon.addFile(QString(":/pictures/quinzolith-%1.png").arg(size), QSize(size, size));
  return icon;
}

void showHelp(QWidget* window, int command, int topic) {
  basHTMLHelp::HtmlHelpA(window, Program::HelpFile, command, topic);
}

void wireModel() {
  basTiles::store = {SafeFile::exists, SafeFile::read, SafeFile::write};
  basTiles::Random = [] { return Program::Random(); };
}

}  // namespace

Wiring::Wiring() {
  wireModel();
  QApplication::setWindowIcon(programIcon());
  Pointer::listen();
  Form::ShowHelp = [](QWidget* window, int topic) {
    showHelp(window, basHTMLHelp::HH_HELP_CONTEXT, topic);
  };

  windows.Splash = &splash;
  windows.Main = &main;
  windows.Open = &open;
  windows.Finished = &finished;
  windows.ShowEditor = [this] { edit.Show(); };

  edit.ShowPlay = [this] { main.Show(); };
  edit.ShowAbout = [this](Form& owner) { splash.ShowModal(&owner); };
  edit.SetChooserEdit = [this](bool on) { open.fEdit = on; };
  edit.ShowHelp = [this](int command, int topic) { showHelp(edit.Window(), command, topic); };
}

Wiring::~Wiring() {
  Form::ShowHelp = nullptr;
}

void Wiring::start() {
  basStartup::Main([this] { splash.Show(); });
}
