// The editor in the whole program, offscreen: its board, its files, and the ways out of it.
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>

#include "edit/KSRecent.h"
#include "platform/PictureBox.h"
#include "tests/play/PlayFixture.h"

using basTiles::CurrentFileName;
using basTiles::fSaved;

namespace {

class Editor : public PlayFixture {
 protected:
  void SetUp() override {
    PlayFixture::SetUp();
    fSaved = false;
    user_ = folder_ / "User";
  }

  frmEdit& edit() { return program_->edit; }

  /// Runs the script in the open editor, and leaves the editor without saving.
  void inEditor(const std::function<void()>& script) {
    play([&] {
      openEditor();
      script();
      leave();
    });
  }

  void openEditor() {
    waitOpen(program_->splash);
    click(program_->splash, "imgEdit");
    waitActivated();
  }

  void waitActivated() {
    waitOpen(edit());
    Script::waitFor("the first activation", [this] { return program_->open.fEdit; });
  }

  void leave() {
    Script::onScreen([this] { edit().fFileChanged = false; });
    menu(edit(), "mnuFileClose");
    waitClosed(edit());
  }

  /// Takes a new piece and lays its top-left corner on a cell.
  void lay(int type, int column, int row) {
    Script::onScreen([=, this] {
      QTest::mouseClick(control(edit(), qPrintable(QString("cmdPento%1").arg(type))),
                        Qt::LeftButton);
      const PentoRef piece = edit().Grid->FloatingPento();
      const double s = edit().Grid->TileWidth();
      pressBoard((column + piece->Width() / 2.0) * s, (row + piece->Height() / 2.0) * s);
    });
  }

  void pressBoard(double x, double y) {
    QWidget* surface = control(edit(), "pctFore");
    const int border = PictureBox::kSunkenBorder;
    const QPoint at(border + static_cast<int>(x), border + static_cast<int>(y));
    QTest::mouseMove(surface, at);
    QTest::mouseClick(surface, Qt::LeftButton, {}, at);
  }

  /// Waits for the file dialog and types a name, or cancels it.
  static void choose(const fs::path& file) {
    waitForDialog();
    Script::post([file] {
      auto* name = dialog()->findChild<QLineEdit*>("fileNameEdit");
      name->setText(QString::fromStdString(file.string()));
      QTest::keyClick(name, Qt::Key_Return);
    });
  }
  static void cancelDialog() {
    waitForDialog();
    Script::post([] { dialog()->reject(); });
    waitQuiet();
  }
  static QFileDialog* dialog() {
    return qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
  }
  static void waitForDialog() {
    Script::waitFor("the file dialog", [] { return dialog() != nullptr; });
  }
  static void waitQuiet() {
    Script::waitFor("the dialogs to close", [] { return !QApplication::activeModalWidget(); });
  }

  std::size_t pieces() {
    return Script::onScreen([this] { return edit().Grid->Grid()->PentoCollection().Count(); });
  }
  bool changed() {
    return Script::onScreen([this] { return edit().fFileChanged; });
  }
  static fs::path current() {
    return Script::onScreen([] { return CurrentFileName; });
  }
  static bool saved() {
    return Script::onScreen([] { return fSaved; });
  }
  std::string recent(int item) {
    return Script::onScreen([&] {
      auto* action = edit().Window()->findChild<QAction*>(QString("mnuFileRecent%1").arg(item));
      return action->isVisible() ? action->text().toStdString() : "hidden";
    });
  }
  static std::string bytesOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  fs::path user_;
};

TEST_F(Editor, PiecesAreLaidShiftedPickedUpAndThrownAway) {
  inEditor([this] {
    EXPECT_FALSE(changed());
    lay(8, 1, 1);
    EXPECT_TRUE(changed());
    Script::onScreen([this] { edit().fFileChanged = false; });
    click(edit(), "cmdLeft");  // nothing lies further left than the ring
    click(edit(), "cmdRight");
    click(edit(), "cmdDown");
    click(edit(), "cmdDown");
    click(edit(), "cmdUp");
    Script::onScreen([this] {
      const PentoRef piece = edit().Grid->Grid()->PentoCollection().at(0);
      EXPECT_EQ(QPoint(piece->X(), piece->Y()), QPoint(2, 2));
    });
    click(edit(), "cmdPento3");
    click(edit(), "cmdPento4");
    EXPECT_EQ(Script::onScreen([this] { return edit().Grid->FloatingPento()->PentoType(); }), 4);
    click(edit(), "cmdTrash");
    EXPECT_FALSE(Script::onScreen([this] { return bool{edit().Grid->FloatingPento()}; }));
    EXPECT_FALSE(changed());

    Script::onScreen([this] {  // the middle of the cross
      pressBoard(3.5 * edit().Grid->TileWidth(), 3.5 * edit().Grid->TileWidth());
    });
    EXPECT_TRUE(changed());
    EXPECT_EQ(pieces(), 0U);
    Script::onScreen([this] { edit().fFileChanged = false; });
    menu(edit(), "mnuFileNew");  // does not drop the piece in the hand
    EXPECT_TRUE(Script::onScreen([this] { return bool{edit().Grid->FloatingPento()}; }));
  });
}

TEST_F(Editor, KeysMirrorThePieceAfterItsButtonWasClicked) {
  inEditor([this] {
    Script::onScreen([this] { control(edit(), "cmdPento0")->setFocus(); });
    click(edit(), "cmdPento2");
    Script::onScreen([this] {
      QTest::mouseMove(control(edit(), "pctFore"), QPoint(90, 90));
      QTest::keyClick(edit().Window()->focusWidget(), Qt::Key_Space);
      EXPECT_EQ(edit().Grid->FloatingPento()->PentoType(), 2);
      EXPECT_EQ(edit().Grid->FloatingPento()->FlipCount, 1);
    });
  });
}

TEST_F(Editor, FifteenPiecesAreTheMost) {
  inEditor([this] {
    for (int i = 0; i < 15; ++i) lay(1, 1 + i % 2 * 5, 1 + i / 2);
    ASSERT_EQ(pieces(), 15U);
    click(edit(), "cmdPento5");
    EXPECT_EQ(answer(), "The puzzle can only contain 15 pieces.");
    Script::onScreen([this] {
      EXPECT_FALSE(edit().Grid->FloatingPento() && edit().Grid->FloatingPento()->PentoType() == 5);
      pressBoard(1.5 * edit().Grid->TileWidth(), 1.5 * edit().Grid->TileWidth());
    });
    EXPECT_EQ(pieces(), 14U);
    click(edit(), "cmdPento5");
    EXPECT_EQ(Script::onScreen([this] { return edit().Grid->FloatingPento()->PentoType(); }), 5);
  });
}

TEST_F(Editor, TheLayoutFollowsItsRuleAndEveryButtonShowsInTheSmallestWindow) {
  inEditor([this] {
    const auto resize = [this](QSize client) {
      Script::onScreen([&] {
        edit().Window()->resize(client + edit().Window()->size() - edit().Client()->size());
      });
      Script::waitFor("the size", [&] { return edit().Client()->size() == client; });
    };
    resize({700, 400});  // by the height: 384 / 16
    Script::onScreen([this] {
      EXPECT_EQ(edit().Grid->geometry(), QRect(241, 8, 459, 384));
      EXPECT_EQ(edit().Grid->TileWidth(), 24);
    });
    resize({521, 700});  // by the width: 280 / 16 = 17.5, to the even neighbour
    Script::onScreen([this] {
      EXPECT_EQ(edit().Grid->TileWidth(), 18);
      EXPECT_FALSE(control(edit(), "fraCover")->isVisible());
      EXPECT_EQ(control(edit(), "cmdPento5")->geometry(), QRect(160, 72, 73, 48));
      edit().Window()->resize(1, 1);
    });
    Script::waitFor("the smallest size", [this] { return edit().Client()->width() < 521; });
    Script::onScreen([this] {
      const auto buttons = edit().Client()->findChildren<QPushButton*>();
      EXPECT_EQ(buttons.size(), 17);
      for (const QPushButton* button : buttons) {
        EXPECT_TRUE(edit().Client()->rect().contains(button->geometry()));
        EXPECT_FALSE(button->accessibleName().isEmpty());
        EXPECT_FALSE(button->toolTip().isEmpty());
      }
    });
  });
}

TEST_F(Editor, TheMenusHaveTheirCaptions) {
  inEditor([this] {
    Script::onScreen([this] {
      QStringList captions;
      for (const char* name : {"mnuFile", "mnuHelp"}) {
        auto* bar = edit().Window()->findChild<QMenu*>(name);
        captions << bar->title();
        for (const QAction* item : bar->actions())
          if (item->isVisible()) captions << (item->isSeparator() ? "-" : item->text());
      }
      EXPECT_EQ(captions.join('|').toStdString(),
                "File|New|Open...|-|Save|Save as...|-|Play...|-|Close|"
                "Help|Contents...|How to create puzzles...|-|About...");
    });
  });
}

TEST_F(Editor, AFileIsSavedByTheByteAndOpenedAgain) {
  const fs::path file = user_ / "cross & co.qzl";
  inEditor([&] {
    lay(8, 3, 4);
    Script::post([this] { QTest::keyClick(edit().Window(), Qt::Key_S, Qt::ControlModifier); });
    waitForDialog();
    Script::onScreen([this] {
      EXPECT_EQ(dialog()->windowTitle(), "Open Puzzle");
      EXPECT_EQ(dialog()->nameFilters(), QStringList{"Pentomino Puzzles (*.qzl)"});
      EXPECT_EQ(dialog()->directory().path().toStdString(), user_.string());
    });
    choose(user_ / "cross & co");  // the extension is added
    waitQuiet();
    EXPECT_TRUE(saved());
    EXPECT_FALSE(changed());
    EXPECT_EQ(current(), file);
    EXPECT_NE(recent(0).find("cross && co.qzl"), std::string::npos) << recent(0);
    EXPECT_EQ(recent(0).substr(0, 3), "&1 ");

    PENTOGRID expected;
    expected.SetGridSize(14, 14);
    const auto piece = std::make_shared<PENTO>();
    piece->PentoType(8);
    expected.AddPento(piece, 3, 4);
    EXPECT_EQ(bytesOf(file), PuzzleFormat::write(expected, {1, 1, 7}, PuzzleFormat::kUnlocked));

    lay(1, 5, 10);
    menu(edit(), "mnuFileSave");  // without a dialog
    Script::waitFor("the save", [this] { return !edit().fFileChanged; });
    const std::string two = bytesOf(file);
    menu(edit(), "mnuFileNew");
    EXPECT_EQ(pieces(), 0U);
    EXPECT_EQ(current(), "");
    menu(edit(), "mnuFileRecent0");
    EXPECT_EQ(pieces(), 2U);
    EXPECT_EQ(current(), file);
    menu(edit(), "mnuFileSaveAs");
    choose(file);
    Script::waitFor("the question", [] {
      return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
    });
    Script::onScreen([] {
      qobject_cast<QMessageBox*>(QApplication::activeModalWidget())
          ->button(QMessageBox::Yes)
          ->click();
    });
    waitQuiet();
    EXPECT_EQ(bytesOf(file), two);

    menu(edit(), "mnuFileOpen");
    cancelDialog();
    EXPECT_EQ(current(), file);
    EXPECT_EQ(pieces(), 2U);
  });
}

TEST_F(Editor, TheQuestionAndWhatEachAnswerLeavesBehind) {
  using Answer = QMessageBox::StandardButton;
  inEditor([this] {
    const auto newPuzzle = [this](Answer button) {
      menu(edit(), "mnuFileNew");
      EXPECT_EQ(answer(button), "The current file has changed.\nDo you want to save your changes?");
    };
    lay(8, 1, 1);
    newPuzzle(QMessageBox::Cancel);
    EXPECT_EQ(pieces(), 1U);
    EXPECT_TRUE(changed());

    newPuzzle(QMessageBox::Yes);  // nothing was ever saved: a cancelled dialog keeps the board
    cancelDialog();
    EXPECT_EQ(pieces(), 1U);
    EXPECT_TRUE(changed());
    EXPECT_FALSE(saved());

    newPuzzle(QMessageBox::Yes);
    choose(user_ / "one.qzl");
    Script::waitFor("the new puzzle", [] { return CurrentFileName.empty() && fSaved; });
    EXPECT_EQ(pieces(), 0U);
    EXPECT_FALSE(changed());
    EXPECT_TRUE(fs::exists(user_ / "one.qzl"));

    lay(8, 1, 1);
    newPuzzle(QMessageBox::Yes);  // the save before succeeded, and answers for this one
    cancelDialog();
    EXPECT_EQ(pieces(), 0U);
    EXPECT_FALSE(changed());

    lay(8, 1, 1);
    newPuzzle(QMessageBox::No);
    EXPECT_EQ(pieces(), 0U);
    EXPECT_FALSE(changed());
  });
}

TEST_F(Editor, AFailedSaveNamesTheFileAndKeepsTheChanges) {
  inEditor([this] {
    lay(8, 1, 1);
    Script::onScreen([] {
      basTiles::store.write = [](const fs::path&, const std::string&) {
        throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
      };
    });
    menu(edit(), "mnuFileClose");
    answer(QMessageBox::Yes);
    choose(user_ / "full.qzl");
    const std::string text = answer();
    EXPECT_NE(text.find("No space left on device"), std::string::npos) << text;
    EXPECT_NE(text.find((user_ / "full.qzl").string()), std::string::npos) << text;
    waitQuiet();
    EXPECT_TRUE(Script::onScreen([this] { return edit().Loaded(); }));
    EXPECT_TRUE(changed());
    EXPECT_FALSE(saved());
    EXPECT_EQ(current(), user_ / "full.qzl");
    EXPECT_EQ(recent(0), "hidden");
  });
}

TEST_F(Editor, ALockedPuzzleIsRefused) {
  PENTOGRID board;
  board.SetGridSize(14, 14);
  std::ofstream(folder_ / "puzzles" / "ten.qzl", std::ios::binary)
      << PuzzleFormat::write(board, {1, 1, 7}, PuzzleFormat::kLocked);
  inEditor([this] {
    menu(edit(), "mnuFileOpen");
    choose(folder_ / "puzzles" / "ten.qzl");
    EXPECT_EQ(answer(), "You cannot edit the standard Quinzolith puzzles.");
    waitQuiet();
    EXPECT_EQ(current(), "");
    EXPECT_EQ(recent(0), "hidden");
  });
}

TEST_F(Editor, WithoutTheUserFolderTheDialogStartsInTheDocuments) {
  play([this] {
    waitOpen(program_->splash);
    Script::onScreen([this] { fs::remove_all(user_); });
    openEditor();
    menu(edit(), "mnuFileOpen");
    waitForDialog();
    EXPECT_NE(Script::onScreen([] { return dialog()->directory().path().toStdString(); }),
              user_.string());
    cancelDialog();
    leave();
  });
}

TEST_F(Editor, PlayFollowsOnlyAnEditorThatClosedAndItOpensEmptyAgain) {
  play([this] {
    openEditor();
    lay(8, 1, 1);
    menu(edit(), "mnuFilePlay");
    answer(QMessageBox::Cancel);
    waitQuiet();
    EXPECT_TRUE(Script::onScreen([this] { return edit().Loaded() && !program_->main.Loaded(); }));
    menu(edit(), "mnuFilePlay");
    answer(QMessageBox::No);
    waitOpen(program_->open);
    EXPECT_FALSE(Script::onScreen([this] { return edit().Loaded() || basTiles::AfterSave; }));
    key(program_->open, Qt::Key_Escape);
    waitClosed(program_->open);
    menu(program_->main, "mnuViewEdit");
    waitActivated();
    EXPECT_EQ(pieces(), 0U);
    EXPECT_FALSE(changed());
    EXPECT_EQ(current(), "");
    leave();
  });
}

TEST_F(Editor, HelpGoesToItsTopics) {
  std::vector<std::pair<int, int>> asked;
  int f1 = 0;
  edit().ShowHelp = [&](int command, int topic) { asked.emplace_back(command, topic); };
  Form::ShowHelp = [&](QWidget*, int topic) { f1 = topic; };
  inEditor([&] {
    menu(edit(), "mnuHelpContents");
    menu(edit(), "mnuHelpCreate");
    key(edit(), Qt::Key_F1);
  });
  EXPECT_EQ(asked, (std::vector<std::pair<int, int>>{{0, 0}, {15, 1300}}));
  EXPECT_EQ(f1, 1300);
}

}  // namespace
