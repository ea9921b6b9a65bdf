// Feeds damaged settings to the recent list: its captions stay short, and after a file was added a
// later run reads the same list and the same sound switch.
#include <QList>
#include <QString>

#include "edit/KSRecent.h"
#include "platform/Settings.h"
#include "services/BooleanText.h"
#include "tests/fuzz/Claims.h"

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

/// A run of a program whose settings cannot be written, so that it keeps them in memory.
Settings::Place runWith(SettingsTexts texts) {
  return {"/nowhere/settings.conf", true, true, std::move(texts)};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  stopAtBrokenClaims();
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const Replacement settings(Settings::place, runWith(readSettings(bytes)));
  const auto sound = soundSetting();
  Recent recent;
  recent.AddRecent("/home/somebody/new.qzl");
  Settings::place->kept = readSettings(writeSettings(Settings::place->kept));
  EXPECT_EQ(Recent().files(), recent.files());
  EXPECT_EQ(soundSetting(), sound);
  return 0;
}
