// Texts of unknown origin are shown as they are, and do nothing.
#include "platform/PlainText.h"

#include <gtest/gtest.h>

#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

/// What a tool tip shows of a rich text.
QString shown(const QString& rich) {
  EXPECT_TRUE(Qt::mightBeRichText(rich)) << "its references would be shown as they stand";
  QTextDocument document;
  document.setHtml(rich);
  document.setTextWidth(700);
  EXPECT_LT(document.idealWidth(), 710) << "wider than a small screen";
  return document.toPlainText().remove(QChar(0x200b));
}

TEST(PlainText, WritesOutWhatActsUnseen) {
  EXPECT_EQ(PlainText::plain("a\nb\tc\x7f"), "a\\u000Ab\\u0009c\\u007F");
  EXPECT_EQ(PlainText::plain(u"a\u202Elzq.b\u2066\u200F\u2028\u0085"_s),
            u"a\\u202Elzq.b\\u2066\\u200F\\u2028\\u0085"_s);
  EXPECT_EQ(PlainText::plain(QString(QChar(0xd83d)) + 'x' + QChar(0xde00)), "\\uD83Dx\\uDE00");
  const QString harmless = u"<b>R&D</b> Ünïcödé עברית 😀 \\u000A"_s;
  EXPECT_EQ(PlainText::plain(harmless), harmless);
}

TEST(PlainText, EscapesForPlacesThatTakeRichText) {
  for (const QString text : {"<img src=/dev/zero>", "plain", "&lt;b&gt; & <h1>Big", "</qt><b>x"})
    EXPECT_EQ(shown(PlainText::escaped(text)), text);
  EXPECT_EQ(shown(PlainText::escaped("a\nb")), "a\\u000Ab");
  const QString long_ = QString("<h1>").repeated(1000);
  const QString tip = shown(PlainText::escaped(long_));
  EXPECT_EQ(tip.size(), 1000);
  EXPECT_TRUE(tip.startsWith("<h1><h1>") && tip.endsWith(u'…'));
  const QString pairs = u"😀"_s.repeated(200);
  EXPECT_EQ(shown(PlainText::escaped(pairs)), pairs) << "broken within a character";
}

}  // namespace
