#include "play/frmOpen.h"

#include <vector>

#include "catalogue/Catalogue.h"
#include "model/PuzzleFormat.h"
#include "model/basTiles.h"
#include "platform/Dialogs.h"
#include "platform/Program.h"
#include "play/Attempt.h"
#include "play/UserPuzzles.h"
#include "play/frmMain.h"
#include "services/basHTMLHelp.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kExtension = ".qzl";

}  // namespace

void frmOpen::Form_Load() {
  chkEasy_->setChecked(fEasyChecked_);
  cmdOk_->setEnabled(!fEdit);
  attempt([this] { fillCatalogue(); });
  attempt([this] { fillUserPuzzles(); });
  lvwPuzzles_[kOther]->setVisible(lvwPuzzles_[kOther]->count() > 0);
  QObject::connect(tabGames_, &QTabWidget::currentChanged, tabGames_, [this] { tabGames_Click(); });
  tabGames_->setCurrentIndex(LastTab_);
  lvwPuzzles_[static_cast<std::size_t>(LastTab_)]->setFocus();
}

void frmOpen::fillCatalogue() {
  std::array<std::vector<PuzzleEntry>, kTabs> puzzles;
  for (const Catalogue::Entry& entry : Catalogue::entries())
    puzzles.at(static_cast<std::size_t>(entry.tab))
        .push_back({QString::fromUtf8(entry.key), QString::fromUtf8(entry.title),
                    chooserIcon(QString::fromUtf8(entry.icon)),
                    std::string(entry.key) + kExtension});
  for (std::size_t tab = 0; tab < kOther; ++tab) lvwPuzzles_[tab]->fill(std::move(puzzles[tab]));
}

void frmOpen::fillUserPuzzles() {
  const QIcon icon = chooserIcon("pento");
  std::vector<PuzzleEntry> puzzles;
  for (const fs::path& name : puzzlesIn(Program::UserPath)) {
    const QString stem = QString::fromStdString(name.stem().string());
    puzzles.push_back({stem, stem, icon, name});
  }
  lvwPuzzles_[kOther]->fill(std::move(puzzles));
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

fs::path frmOpen::folderOf(int tab) {
  return tab == kOther ? Program::UserPath : Program::installationFolder() / "puzzles";
}

void frmOpen::cmdOk_Click() {
  setRandom();
  windows_.Main->Grid->fEasyMode = chkEasy_->isChecked();
  windows_.Main->PentoPanel->fEasyMode = chkEasy_->isChecked();
  const int tab = tabGames_->currentIndex();
  const PuzzleEntry* puzzle = lvwPuzzles_.at(static_cast<std::size_t>(tab))->selected();
  if (!puzzle) {
    Dialogs::message("Please select a puzzle.", Dialogs::Icon::Exclamation);
    return;
  }
  const std::string key = puzzle->key.toStdString();
  if (basTiles::LoadPuzzle(folderOf(tab) / puzzle->file, fEdit)) {
    basTiles::CurrentFileName = key;
    Unload();
  } else {
    Dialogs::message(PuzzleFormat::kInvalid, Dialogs::Icon::Exclamation);
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
  windows_.Main->UnloadFromDialog();
  if (windows_.ShowEditor) windows_.ShowEditor();
}

void frmOpen::cmdHelp_Click() {
  basHTMLHelp::ShowHelp(*this, basHTMLHelp::Topic::Chooser);
}
