// What a person does to windows and dialogs.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTabWidget>
#include <QtTest/QTest>

#include "tests/machine/Machine.h"

namespace machine {

namespace {

constexpr const char* kPlayItems[] = {"mnuFileOpen", "mnuHelpAbout", "mnuSoundOn",
                                      "mnuSoundOff", "mnuViewEdit",  "mnuFileClose"};
constexpr const char* kEditItems[] = {"mnuFileNew",    "mnuFileOpen",    "mnuFileSave",
                                      "mnuFileSaveAs", "mnuFileRecent0", "mnuFileRecent1",
                                      "mnuHelpAbout",  "mnuFilePlay",    "mnuFileClose"};
constexpr const char* kEditButtons[] = {
    "cmdPento0", "cmdPento1", "cmdPento2", "cmdPento3", "cmdPento4",  "cmdPento5",
    "cmdPento6", "cmdPento7", "cmdPento8", "cmdPento9", "cmdPento10", "cmdPento11",
    "cmdTrash",  "cmdUp",     "cmdLeft",   "cmdRight",  "cmdDown"};
constexpr const char* kSolvedButtons[] = {"imgRetry", "imgOpen", "imgEdit", "imgQuit"};
constexpr const char* kChooserButtons[] = {"cmdCancel", "chkEasy", "cmdBrowse", "cmdCreate"};
constexpr int kTabs = 5;

}  // namespace

void Machine::close() {
  QWidget* window = front();
  if (!window) return;
  expectFiles();
  question_.reset();
  if (auto* dialog = qobject_cast<QDialog*>(window); dialog && !dialog->close())
    dialog->reject();
  else
    window->close();
}

void Machine::chooseItem(int which) {
  const char* name = playing() ? counted(kPlayItems, which) : counted(kEditItems, which);
  auto* item = stage()->Window()->findChild<QAction*>(name);
  if (!item || !item->isVisible()) return;
  expectFiles();
  item->trigger();
}

void Machine::pushButton(int which) {
  QWidget* window = front();
  if (!window || qobject_cast<QMessageBox*>(window) || qobject_cast<QFileDialog*>(window)) return;
  const char* name = "imgPlay";
  if (window == program_->finished.Window()) name = counted(kSolvedButtons, which);
  if (window == program_->open.Window()) name = counted(kChooserButtons, which);
  if (window == program_->edit.Window()) name = counted(kEditButtons, which);
  auto* button = window->findChild<QAbstractButton*>(name);
  if (!button || window == program_->main.Window()) return;
  if (window == program_->edit.Window())
    expectEditorButton(which % static_cast<int>(std::size(kEditButtons)));
  else
    expectFiles();
  button->click();
}

void Machine::choosePuzzle(int which) {
  QWidget* window = program_->open.Window();
  if (!window || front() != window) return;
  auto* easy = window->findChild<QCheckBox*>("chkEasy");
  if (easy->isChecked() != (which % 2 == 1)) easy->click();
  auto* tabs = window->findChild<QTabWidget*>();
  const int tab = which / 2 % kTabs;
  tabs->setCurrentIndex(tab);
  auto* list = window->findChild<QAbstractItemView*>(QString("lvwPuzzles%1").arg(tab));
  const int count = list->model()->rowCount();
  if (count == 0) return;
  list->setCurrentIndex(list->model()->index(which / 2 / kTabs % count, 0));
  easy_[kBoard] = easy_[kTray] = which % 2 == 1;
  expectFiles();
  window->findChild<QAbstractButton*>("cmdOk")->click();
}

void Machine::answer(int which) {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!box) return;
  QAbstractButton* button = box->buttons().at(which % box->buttons().size());
  if (question_ && box->standardButton(button) == QMessageBox::Yes) {
    easy_[question_->side] = false;
    expectChange(question_->quarters, question_->side);
  } else if (!question_) {
    expectFiles();
  }
  question_.reset();
  button->click();
}

void Machine::name(int which) {
  auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
  if (!dialog) return;
  const std::vector<std::filesystem::path> names = installation_.names();
  const std::size_t choice = static_cast<std::size_t>(which) % (names.size() + 1);
  if (choice == names.size()) return dialog->reject();
  expectFiles();
  auto* field = dialog->findChild<QLineEdit*>("fileNameEdit");
  field->setText(QString::fromStdString(names[choice].string()));
  QTest::keyClick(field, Qt::Key_Return);
}

}  // namespace machine
