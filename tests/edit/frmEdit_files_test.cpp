// The editor's files: opening and saving through real dialogs, and the question before changes are
// lost.
#include <QListView>

#include "tests/edit/EditorFixture.h"

using basTiles::fSaved;

namespace {

class EditorFiles : public EditorFixture {
 protected:
  static constexpr const char* kReplace = " already exists.\nDo you want to replace it?";

  /// What the disk does with the next saves.
  void setWrite(const decltype(PuzzleStore::write)& write) {
    onScreen([&] {
      const PuzzleStore now = *basTiles::store;
      store_.emplace(basTiles::store, PuzzleStore{now.exists, now.read, write});
    });
  }

  std::optional<Replacement<PuzzleStore>> store_;
};

TEST_F(EditorFiles, AFileIsSavedByTheByteAndOpenedAgain) {
  const fs::path file = user_ / "cross & co.qzl";
  inEditor([&] {
    lay(8, 3, 4);
    post([this] { QTest::keyClick(edit().Window(), Qt::Key_S, Qt::ControlModifier); });
    EXPECT_EQ(folderInDialog(), user_);
    choose(user_ / "cross & co");  // the extension is added
    waitQuiet();
    EXPECT_TRUE(saved());
    EXPECT_EQ(state(), "1");
    EXPECT_EQ(current(), file);
    EXPECT_EQ(recent(0).substr(0, 3), "&1 ");
    EXPECT_NE(recent(0).find("cross && co.qzl"), std::string::npos) << recent(0);

    PENTOGRID expected;
    expected.SetGridSize(14, 14);
    expected.AddPento(makePiece(8), 3, 4);
    EXPECT_EQ(bytesOf(file), PuzzleFormat::write(expected, PuzzleFormat::kUnlocked));

    lay(1, 5, 10);
    menu(edit(), "mnuFileSave");  // without a dialog
    waitFor("the save", [this] { return !edit().fFileChanged; });
    const std::string two = bytesOf(file);
    menu(edit(), "mnuFileNew");
    EXPECT_EQ(state(), "0");
    EXPECT_EQ(current(), "");
    menu(edit(), "mnuFileRecent0");
    EXPECT_EQ(state(), "2");
    EXPECT_EQ(current(), file);
    menu(edit(), "mnuFileSaveAs");
    choose(file);
    EXPECT_EQ(answer(QMessageBox::Yes), "cross & co.qzl" + std::string(kReplace));
    waitQuiet();
    EXPECT_EQ(bytesOf(file), two);

    menu(edit(), "mnuFileOpen");
    cancelDialog();
    EXPECT_EQ(current(), file);
    EXPECT_EQ(state(), "2");
  });
}

TEST_F(EditorFiles, TheQuestionAndWhatEachAnswerLeavesBehind) {
  inEditor([this] {
    const auto newPuzzle = [this](QMessageBox::StandardButton button) {
      if (state() == "0") lay(8, 1, 1);
      menu(edit(), "mnuFileNew");
      EXPECT_EQ(answer(button), "The current file has changed.\nDo you want to save your changes?");
    };
    newPuzzle(QMessageBox::Cancel);
    EXPECT_EQ(state(), "1*");
    newPuzzle(QMessageBox::Yes);  // nothing was ever saved: a cancelled dialog keeps the board
    cancelDialog();
    EXPECT_EQ(state(), "1*");
    EXPECT_FALSE(saved());
    newPuzzle(QMessageBox::Yes);
    choose(user_ / "one.qzl");
    waitFor("the new puzzle", [] { return basTiles::CurrentFileName.empty() && fSaved; });
    EXPECT_EQ(state(), "0");
    EXPECT_TRUE(fs::exists(user_ / "one.qzl"));
    newPuzzle(QMessageBox::Yes);  // the save before succeeded, and answers for this one
    cancelDialog();
    EXPECT_EQ(state(), "0");
    newPuzzle(QMessageBox::No);
    EXPECT_EQ(state(), "0");

    lay(8, 1, 1);
    menu(edit(), "mnuFileOpen");
    answer(QMessageBox::No);
    cancelDialog();
    EXPECT_EQ(state(), "1") << "who has given the changes up is not asked again";
  });
}

TEST_F(EditorFiles, AFailedSaveHoldsTheCommandBackAndKeepsTheChangesAndTheOldFile) {
  const fs::path file = user_ / "full.qzl";
  inEditor([&] {
    const auto working = basTiles::store->write;
    const auto fullDisk = [](const fs::path&, const std::string&, std::size_t) {
      throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
    };
    const auto expectFailure = [&](const char* left) {
      EXPECT_EQ(answer(), "No space left on device.\n" + file.string());
      waitQuiet();  // nothing follows: the window stays, no other file is asked for
      EXPECT_TRUE(loaded(edit()));
      EXPECT_EQ(state(), left);
      EXPECT_FALSE(saved());
      EXPECT_EQ(current(), file);
    };
    lay(8, 1, 1);
    setWrite(fullDisk);
    menu(edit(), "mnuFileClose");
    answer(QMessageBox::Yes);
    choose(file);
    expectFailure("1*");
    EXPECT_EQ(recent(0), "hidden");

    setWrite(working);
    menu(edit(), "mnuFileSave");
    waitFor("the save", [] { return fSaved; });
    const std::string old = bytesOf(file);
    lay(8, 6, 6);
    setWrite(fullDisk);
    menu(edit(), "mnuFileOpen");
    answer(QMessageBox::Yes);
    expectFailure("2*");
    EXPECT_EQ(bytesOf(file), old);
  });
}

TEST_F(EditorFiles, ADialogStartsInTheFolderThatWasUsedOrElsewhereWhenItIsGone) {
  const fs::path folder = user_ / "animals", file = folder / "dog.qzl";
  inEditor([&] {
    fs::create_directories(folder);
    lay(8, 1, 1);
    saveAs(folder / "dog");
    const std::string old = bytesOf(file);

    lay(8, 5, 5);
    menu(edit(), "mnuFileSaveAs");
    EXPECT_EQ(nameInDialog(), "dog.qzl");
    choose(folder / "dog");  // without the extension it is the same file
    answer(QMessageBox::No);
    cancelDialog();
    EXPECT_EQ(state(), "2*");
    EXPECT_TRUE(saved());
    EXPECT_EQ(current(), file);
    EXPECT_EQ(bytesOf(file), old);

    fs::remove_all(folder);
    menu(edit(), "mnuFileSaveAs");
    EXPECT_EQ(nameInDialog(), "dog.qzl");  // seen: the whole path without its leading "/"
    cancelDialog();
    fs::create_directories(folder);
    menu(edit(), "mnuFileNew");
    answer(QMessageBox::No);
    menu(edit(), "mnuFileOpen");
    EXPECT_EQ(nameInDialog(), "");
    EXPECT_EQ(folderInDialog(), folder);
    cancelDialog();

    fs::remove_all(user_);
    menu(edit(), "mnuFileSaveAs");
    EXPECT_NE(folderInDialog(), user_.parent_path());
    EXPECT_EQ(nameInDialog(), "");  // seen: "User"
    cancelDialog();
  });
}

TEST_F(EditorFiles, ANameIsCompletedUnlessItEndsInTheExtensionInAnyCase) {
  inEditor([this] {
    lay(8, 1, 1);
    for (const auto& [typed, stored] :
         {std::pair{"Mr. Smile", "Mr. Smile.qzl"},  // seen: no extension, and in no list of puzzles
          std::pair{"LOUD.QZL", "LOUD.QZL"}}) {
      saveAs(user_ / typed);
      EXPECT_EQ(current(), user_ / stored);
      EXPECT_TRUE(fs::exists(user_ / stored));
    }
    menu(edit(), "mnuFileSaveAs");
    choose(user_ / "Mr. Smile");
    EXPECT_EQ(answer(QMessageBox::No), "Mr. Smile.qzl" + std::string(kReplace));
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
    waitFor("the dialog's list",
            [&] { return dialog() && files()->model()->rowCount(files()->rootIndex()) == 1; });
    post([&] {  // the toolkit's own question
      files()->setCurrentIndex(files()->model()->index(0, 0, files()->rootIndex()));
      auto* remove = dialog()->findChild<QAction*>("qt_delete_action");
      remove->setEnabled(true);
      remove->trigger();
    });
    const auto box = [] { return qobject_cast<QMessageBox*>(QApplication::activeModalWidget()); };
    waitFor("the question", [&] { return box() != nullptr; });
    EXPECT_EQ(onScreen([&] { return box()->textFormat(); }), Qt::PlainText);
    post([&] { box()->button(QMessageBox::No)->click(); });
    waitFor("the dialog again", [] { return dialog() != nullptr; });
    cancelDialog();
  });
}

TEST_F(EditorFiles, ARecentFileThatIsGoneIsReportedAndStaysInTheList) {
  inEditor([this] {
    lay(8, 1, 1);
    for (const char* name : {"one.qzl", "two.qzl"}) saveAs(user_ / name);
    fs::remove(user_ / "one.qzl");
    menu(edit(), "mnuFileRecent1");
    EXPECT_EQ(answer(), "File does not exist.");
    waitQuiet();
    EXPECT_EQ(current(), "");
    EXPECT_EQ(state(), "1");  // the loader touches nothing before it has found a file
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
    for (const auto button : {QMessageBox::Cancel, QMessageBox::Yes}) {
      EXPECT_EQ(state(), "1*");
      post([this] { edit().Window()->close(); });
      answer(button);
      if (button == QMessageBox::Cancel) waitQuiet();
    }
    choose(user_ / "last.qzl");
    waitClosed(edit());
  });
  EXPECT_TRUE(fs::exists(user_ / "last.qzl"));
}

}  // namespace
