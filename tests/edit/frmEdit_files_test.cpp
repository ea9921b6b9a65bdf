// The editor's files: opening and saving through real dialogs, and the question before changes are
// lost.
#include <QListView>

#include "tests/edit/EditorFixture.h"

using basTiles::CurrentFileName;
using basTiles::fSaved;

namespace {

using EditorFiles = EditorFixture;

TEST_F(EditorFiles, AFileIsSavedByTheByteAndOpenedAgain) {
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
    expected.AddPento(makePiece(8), 3, 4);
    EXPECT_EQ(bytesOf(file), PuzzleFormat::write(expected, PuzzleFormat::kUnlocked));

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
    EXPECT_EQ(answer(QMessageBox::Yes),
              "cross & co.qzl already exists.\nDo you want to replace it?");
    waitQuiet();
    EXPECT_EQ(bytesOf(file), two);

    menu(edit(), "mnuFileOpen");
    cancelDialog();
    EXPECT_EQ(current(), file);
    EXPECT_EQ(pieces(), 2U);
  });
}

TEST_F(EditorFiles, TheQuestionAndWhatEachAnswerLeavesBehind) {
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

    lay(8, 1, 1);
    menu(edit(), "mnuFileOpen");
    answer(QMessageBox::No);
    cancelDialog();
    EXPECT_EQ(pieces(), 1U);
    EXPECT_FALSE(changed()) << "who has given the changes up is not asked again";
  });
}

TEST_F(EditorFiles, AFailedSaveHoldsTheCommandBackAndKeepsTheChangesAndTheOldFile) {
  const fs::path file = user_ / "full.qzl";
  inEditor([&] {
    const PuzzleStore working = *basTiles::store;
    std::optional<Replacement<PuzzleStore>> store;
    const auto setWrite = [&](const decltype(working.write)& write) {
      Script::onScreen([&] {
        store.emplace(basTiles::store, PuzzleStore{working.exists, working.read, write});
      });
    };
    const auto fullDisk = [](const fs::path&, const std::string&, std::size_t) {
      throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
    };
    const auto expectFailure = [&] {
      const std::string text = answer();
      EXPECT_NE(text.find("No space left on device"), std::string::npos) << text;
      EXPECT_NE(text.find(file.string()), std::string::npos) << text;
      waitQuiet();  // nothing follows: the window stays, no other file is asked for
      EXPECT_TRUE(Script::onScreen([this] { return edit().Loaded(); }));
      EXPECT_TRUE(changed());
      EXPECT_FALSE(saved());
      EXPECT_EQ(current(), file);
    };
    lay(8, 1, 1);
    setWrite(fullDisk);
    menu(edit(), "mnuFileClose");
    answer(QMessageBox::Yes);
    choose(file);
    expectFailure();
    EXPECT_EQ(recent(0), "hidden");

    setWrite(working.write);
    menu(edit(), "mnuFileSave");
    Script::waitFor("the save", [] { return fSaved; });
    const std::string old = bytesOf(file);
    lay(8, 6, 6);
    setWrite(fullDisk);
    menu(edit(), "mnuFileOpen");
    answer(QMessageBox::Yes);
    expectFailure();
    EXPECT_EQ(pieces(), 2U);
    EXPECT_EQ(bytesOf(file), old);
  });
}

TEST_F(EditorFiles, WithoutTheUserFolderTheDialogStartsElsewhereAndNamesNoFile) {
  play([this] {
    openEditor();
    Script::onScreen([this] { fs::remove_all(user_); });
    menu(edit(), "mnuFileSaveAs");
    waitForDialog();
    Script::onScreen([this] {
      EXPECT_NE(dialog()->directory().path().toStdString(), user_.parent_path().string());
      EXPECT_EQ(dialog()->findChild<QLineEdit*>("fileNameEdit")->text(), "");  // seen: "User"
    });
    cancelDialog();
    leave();
  });
}

TEST_F(EditorFiles, ACancelledSaveAsChangesNothingAndTheDialogKeepsItsFolder) {
  const fs::path folder = user_ / "animals", file = folder / "dog.qzl";
  inEditor([&] {
    fs::create_directories(folder);
    lay(8, 1, 1);
    menu(edit(), "mnuFileSaveAs");
    choose(folder / "dog");
    waitQuiet();
    const std::string old = bytesOf(file);

    lay(8, 5, 5);
    menu(edit(), "mnuFileSaveAs");
    waitForDialog();
    EXPECT_EQ(nameInDialog(), "dog.qzl");
    choose(folder / "dog");  // without the extension it is the same file
    answer(QMessageBox::No);
    cancelDialog();
    EXPECT_TRUE(changed());
    EXPECT_TRUE(saved());
    EXPECT_EQ(current(), file);
    EXPECT_EQ(bytesOf(file), old);

    menu(edit(), "mnuFileNew");
    answer(QMessageBox::No);
    menu(edit(), "mnuFileOpen");
    waitForDialog();
    EXPECT_EQ(nameInDialog(), "");
    EXPECT_EQ(Script::onScreen([] { return dialog()->directory().path().toStdString(); }),
              folder.string());
    cancelDialog();
  });
}

TEST_F(EditorFiles, ANameIsCompletedUnlessItEndsInTheExtensionInAnyCase) {
  inEditor([this] {
    lay(8, 1, 1);
    const auto saveAs = [this](const char* typed, const char* stored) {
      menu(edit(), "mnuFileSaveAs");
      choose(user_ / typed);
      waitQuiet();
      EXPECT_EQ(current(), user_ / stored);
      EXPECT_TRUE(fs::exists(user_ / stored));
    };
    saveAs("Mr. Smile", "Mr. Smile.qzl");  // seen: no extension, and in no list of puzzles
    saveAs("LOUD.QZL", "LOUD.QZL");
    menu(edit(), "mnuFileSaveAs");
    choose(user_ / "Mr. Smile");
    EXPECT_EQ(answer(QMessageBox::No), "Mr. Smile.qzl already exists.\nDo you want to replace it?");
    cancelDialog();
    EXPECT_EQ(current(), user_ / "LOUD.QZL");

    putBytes(user_ / "bare.name", bytesOf(user_ / "LOUD.QZL"));
    for (const auto& [typed, opened] :
         {std::pair{"Mr. Smile", "Mr. Smile.qzl"}, std::pair{"bare.name", "bare.name"}}) {
      menu(edit(), "mnuFileOpen");
      choose(user_ / typed);
      waitQuiet();
      EXPECT_EQ(current(), user_ / opened);
    }
  });
}

TEST_F(EditorFiles, SaveAsPresetsTheBareNameOfAFileWhoseFolderIsGone) {
  inEditor([this] {
    fs::create_directories(user_ / "animals");
    lay(8, 1, 1);
    menu(edit(), "mnuFileSaveAs");
    choose(user_ / "animals" / "dog");
    waitQuiet();
    fs::remove_all(user_ / "animals");
    menu(edit(), "mnuFileSaveAs");
    waitForDialog();
    EXPECT_EQ(nameInDialog(), "dog.qzl");  // seen: the whole path without its leading "/"
    cancelDialog();
  });
}

TEST_F(EditorFiles, NamesThatLookLikeMarkupAreShownAsTheyAre) {
  const std::string name = "<b>big<img src=&#47;dev&#47;zero>" + std::string(200, 'W');
  inEditor([&] {
    writePuzzle(user_ / (name + ".qzl"));
    menu(edit(), "mnuFileSaveAs");
    choose(user_ / name);
    const std::string question = answer(QMessageBox::No);
    EXPECT_EQ(question.rfind("<b>big<img", 0), 0U) << question;
    EXPECT_NE(question.find("…"), std::string::npos) << question;
    const auto files = [] { return dialog()->findChild<QListView*>("listView"); };
    Script::waitFor("the dialog's list", [&] {
      return dialog() && files()->model()->rowCount(files()->rootIndex()) == 1;
    });
    Script::post([&] {  // the toolkit's own question
      files()->setCurrentIndex(files()->model()->index(0, 0, files()->rootIndex()));
      auto* remove = dialog()->findChild<QAction*>("qt_delete_action");
      remove->setEnabled(true);
      remove->trigger();
    });
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    Script::waitFor("the question", [&] { return box() != nullptr; });
    EXPECT_EQ(Script::onScreen([&] { return box()->textFormat(); }), Qt::PlainText);
    Script::post([&] { box()->button(QMessageBox::No)->click(); });
    Script::waitFor("the dialog again", [] { return dialog() != nullptr; });
    cancelDialog();
  });
}

TEST_F(EditorFiles, ARecentFileThatIsGoneIsReportedAndStaysInTheList) {
  inEditor([this] {
    lay(8, 1, 1);
    for (const char* name : {"one.qzl", "two.qzl"}) {
      menu(edit(), "mnuFileSaveAs");
      choose(user_ / name);
      waitQuiet();
    }
    fs::remove(user_ / "one.qzl");
    menu(edit(), "mnuFileRecent1");
    EXPECT_EQ(answer(), "File does not exist.");
    waitQuiet();
    EXPECT_EQ(current(), "");
    EXPECT_EQ(pieces(), 1U);  // the loader touches nothing before it has found a file
    EXPECT_NE(recent(0).find("two.qzl"), std::string::npos) << recent(0);
    EXPECT_NE(recent(1).find("one.qzl"), std::string::npos) << recent(1);
    menu(edit(), "mnuFileRecent0");
    EXPECT_EQ(current(), user_ / "two.qzl");
  });
}

TEST_F(EditorFiles, TheWindowsCloseBoxAsksAndSaves) {
  play([this] {
    openEditor();
    lay(8, 1, 1);
    const auto closeBox = [this] { Script::post([this] { edit().Window()->close(); }); };
    closeBox();
    answer(QMessageBox::Cancel);
    waitQuiet();
    EXPECT_TRUE(Script::onScreen([this] { return edit().Window()->isVisible(); }));
    EXPECT_TRUE(changed());
    EXPECT_EQ(pieces(), 1U);
    closeBox();
    answer(QMessageBox::Yes);
    choose(user_ / "last.qzl");
    waitClosed(edit());
  });
  EXPECT_TRUE(fs::exists(user_ / "last.qzl"));
}

}  // namespace
