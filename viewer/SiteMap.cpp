#include "viewer/SiteMap.h"

#include <QRegularExpression>
#include <algorithm>

#include "viewer/HtmlText.h"

namespace SiteMap {

namespace {

constexpr int kDeepest = 31;
constexpr qsizetype kMost = 50000;

/// Reads tag after tag; an entry is whole at its </object>.
class Reader {
 public:
  void take(const QString& tag, const QString& attributes) {
    if (tag == "ul") ++level_;
    if (tag == "/ul") level_ = std::max(level_ - 1, 0);
    if (tag == "object") startObject(attributes);
    if (tag == "/object") endObject();
    if (tag == "param" && inEntry_) takeParameter(attributes);
  }
  QList<Entry> entries;

 private:
  void startObject(const QString& attributes) {
    inEntry_ =
        HtmlText::attribute(attributes, "type").compare("text/sitemap", Qt::CaseInsensitive) == 0;
    entry_ = {};
  }
  void endObject() {
    entry_.level = std::clamp(level_ - 1, 0, kDeepest);
    if (inEntry_ && !entry_.name.isEmpty()) entries << entry_;
    inEntry_ = false;
  }
  /// An index entry may have several names and pages; the first ones count.
  void takeParameter(const QString& attributes) {
    const QString name = HtmlText::attribute(attributes, "name");
    const QString value = HtmlText::attribute(attributes, "value");
    if (name.compare("Name", Qt::CaseInsensitive) == 0 && entry_.name.isEmpty())
      entry_.name = value;
    if (name.compare("Local", Qt::CaseInsensitive) == 0 && entry_.page.isEmpty())
      entry_.page = value;
  }

  int level_ = 0;
  bool inEntry_ = false;
  Entry entry_;
};

}  // namespace

QList<Entry> parse(const QString& text) {
  static const QRegularExpression tag("<(/?[a-z]+)([^>]*)>",
                                      QRegularExpression::CaseInsensitiveOption);
  Reader reader;
  for (auto tags = tag.globalMatch(text); tags.hasNext() && reader.entries.size() < kMost;) {
    const QRegularExpressionMatch match = tags.next();
    reader.take(match.captured(1).toLower(), match.captured(2));
  }
  return reader.entries;
}

}  // namespace SiteMap
