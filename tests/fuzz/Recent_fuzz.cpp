// Feeds damaged settings files to the recent list: its captions stay short, its files are opened as
// the editor opens them, and after a file was added a later run reads the same list.
#include <QFile>
#include <QTemporaryDir>

#include "edit/KSRecent.h"
#include "files/SafeFile.h"
#include "model/basTiles.h"
#include "platform/Settings.h"
#include "services/BooleanText.h"
#include "tests/fuzz/Claims.h"
#include "tests/model/BareTarget.h"

namespace {

constexpr std::int16_t kEntries = 4;

struct Menu : RecentMenu {
  void SetCaption(int /*item*/, const std::string& text) override {
    EXPECT_LE(QString::fromStdString(text).toUcs4().size(), 3 + 30);
  }
  void SetVisible(int item, bool /*visible*/) override { EXPECT_LE(item, kEntries); }
};

struct Recent : KSRecent {
  Recent() {
    MenuCount(kEntries);
    MenuForm(menu);
    Name("Recent Puzzles");
  }
  std::vector<std::string> files() const {
    std::vector<std::string> all;
    for (std::int16_t i = 0; i < kEntries; ++i) all.push_back(FileName(i));
    return all;
  }
  Menu menu;
};

std::optional<bool> soundSetting() {
  return booleanFromText(Settings::get(Settings::application(), "Sound", "Status", "True"));
}

/// The settings with this content, in a file of a name not used before: Qt keeps what it has read.
QString fileWith(const std::uint8_t* data, std::size_t size) {
  static const QTemporaryDir folder;
  static int number = 0;
  const QString name = folder.filePath(QString("%1.ini").arg(++number));
  QFile file(name);
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  return name;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  stopAtBrokenClaims();
  const QString file = fileWith(data, size);
  const Replacement settings(Settings::place, Settings::Place{file.toStdString()});
  const auto sound = soundSetting();
  Recent recent;
  BareWindows windows;
  const Replacement store(basTiles::store, {SafeFile::exists, SafeFile::read, SafeFile::writeOver});
  for (const std::string& name : recent.files()) {
    const bool loaded = basTiles::LoadPuzzle(name, true);
    EXPECT_EQ(loaded, basTiles::LastFileError.empty());
  }
  recent.AddRecent("/home/somebody/new.qzl");
  EXPECT_EQ(Recent().files(), recent.files());
  EXPECT_EQ(soundSetting(), sound);
  QFile::remove(file);
  return 0;
}
