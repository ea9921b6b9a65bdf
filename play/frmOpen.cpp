#include "play/frmOpen.h"

#include <algorithm>
#include <vector>

#include "catalogue/Catalogue.h"
#include "model/basTiles.h"
#include "platform/Dialogs.h"
#include "platform/Program.h"
#include "play/Attempt.h"
#include "play/frmMain.h"
#include "services/basHTMLHelp.h"

namespace fs = std::filesystem;

namespace {

constexpr int kKeyRole = Qt::UserRole;       // the entry's key
constexpr int kFileRole = Qt::UserRole + 1;  // the real name of a user's puzzle

QListWidgetItem* addEntry(QListWidget* list, const QString& key, const QString& title,
                          const QIcon& icon) {
  auto* entry = new QListWidgetItem(icon, title, list);
  entry->setData(kKeyRole, key);
  entry->setToolTip(title);
  return entry;
}

QString text(const fs::path& path) {
  return QString::fromStdString(path.string());
}

bool isPuzzleName(const fs::path& name) {
  QString extension = text(name.extension());
  return text(name.filename()).front() != '.' &&
         extension.compare(".qzl", Qt::CaseInsensitive) == 0;
}

/// The ordinary .qzl files of a folder by name.
std::vector<fs::path> puzzlesIn(const fs::path& folder) {
  std::vector<fs::path> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    std::error_code unreadable;
    if (isPuzzleName(entry.path()) && entry.is_regular_file(unreadable))
      names.push_back(entry.path().filename());
  }
  std::sort(names.begin(), names.end(), [](const fs::path& a, const fs::path& b) {
    return text(a).localeAwareCompare(text(b)) < 0;
  });
  return names;
}

}  // namespace

void frmOpen::Form_Load() {
  chkEasy_->setChecked(fEasyChecked_);
  cmdOk_->setEnabled(!fEdit);
  attempt([this] { fillCatalogue(); });
  attempt([this] { fillUserPuzzles(); });
  selectFirstEntries();
  lvwPuzzles_[kOther]->setVisible(lvwPuzzles_[kOther]->count() > 0);
  QObject::connect(tabGames_, &QTabWidget::currentChanged, tabGames_, [this] { tabGames_Click(); });
  tabGames_->setCurrentIndex(LastTab_);
  lvwPuzzles_[static_cast<std::size_t>(LastTab_)]->setFocus();
}

void frmOpen::fillCatalogue() {
  for (const Catalogue::Entry& entry : Catalogue::entries())
    addEntry(lvwPuzzles_.at(static_cast<std::size_t>(entry.tab)), QString::fromUtf8(entry.key),
             QString::fromUtf8(entry.title), puzzleIcon(QString::fromUtf8(entry.icon)));
}

void frmOpen::fillUserPuzzles() {
  const QIcon icon = puzzleIcon("pento");
  for (const fs::path& name : puzzlesIn(Program::UserPath)) {
    const QString stem = text(name.stem());
    addEntry(lvwPuzzles_[kOther], stem, stem, icon)
        ->setData(kFileRole, QByteArray::fromStdString(name.string()));
  }
}

void frmOpen::selectFirstEntries() {
  for (QListWidget* list : lvwPuzzles_) list->setCurrentRow(0);
}

void frmOpen::tabGames_Click() {
  cmdOk_->setEnabled(true);
  cmdOk_->setDefault(true);
  cmdOk_->setFocus();
  LastTab_ = static_cast<std::int16_t>(tabGames_->currentIndex());
}

void frmOpen::setRandom() {
  basTiles::fRandomFlip = !chkEasy_->isChecked();
  basTiles::fRandomRotation = basTiles::fRandomFlip;
}

fs::path frmOpen::chosenFile(const QListWidgetItem& entry, int tab) const {
  if (tab == kOther) return Program::UserPath / entry.data(kFileRole).toByteArray().toStdString();
  return Program::installationFolder() / "puzzles" /
         (entry.data(kKeyRole).toString().toStdString() + ".qzl");
}

void frmOpen::cmdOk_Click() {
  setRandom();
  windows_.Main->Grid->fEasyMode = chkEasy_->isChecked();
  windows_.Main->PentoPanel->fEasyMode = chkEasy_->isChecked();
  const int tab = tabGames_->currentIndex();
  const QListWidgetItem* entry = lvwPuzzles_.at(static_cast<std::size_t>(tab))->currentItem();
  if (!entry) {
    Dialogs::message("Please select a puzzle.", Dialogs::Icon::Exclamation);
    return;
  }
  const std::string key = entry->data(kKeyRole).toString().toStdString();
  if (basTiles::LoadPuzzle(chosenFile(*entry, tab), fEdit)) {
    basTiles::CurrentFileName = key;
    Unload();
  } else {
    Dialogs::message("This is not a valid Quinzolith puzzle.", Dialogs::Icon::Exclamation);
  }
}

void frmOpen::cmdBrowse_Click() {
  setRandom();
  if (windows_.Main->OpenFile()) Unload();
}

void frmOpen::cmdCancel_Click() {
  Unload();
}

void frmOpen::Form_Escape() {
  cmdCancel_Click();
}

void frmOpen::cmdCreate_Click() {
  Unload();
  windows_.Main->fCancelLoad = true;
  windows_.Main->Unload();
  if (windows_.ShowEditor) windows_.ShowEditor();
}

void frmOpen::cmdHelp_Click() {
  basHTMLHelp::ShowHelp(*this, basHTMLHelp::Topic::Chooser);
}
