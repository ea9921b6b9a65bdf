#include "platform/PlainText.h"

namespace PlainText {

namespace {

constexpr qsizetype kLongestEscaped = 1000;
constexpr qsizetype kLongestWord = 60;
constexpr char16_t kZeroWidthSpace = 0x200b;

bool isBetween(char16_t code, char16_t first, char16_t last) {
  return first <= code && code <= last;
}

bool actsUnseen(QChar character) {
  const char16_t code = character.unicode();
  return character.category() == QChar::Other_Control || code == 0x061c ||
         isBetween(code, 0x200e, 0x200f) || isBetween(code, 0x2028, 0x202e) ||
         isBetween(code, 0x2066, 0x2069);
}

/// Of a pair of surrogates only the two together are a character.
bool isHalf(const QString& text, qsizetype at) {
  if (text[at].isHighSurrogate()) return at + 1 == text.size() || !text[at + 1].isLowSurrogate();
  return text[at].isLowSurrogate() && (at == 0 || !text[at - 1].isHighSurrogate());
}

QString written(QChar character) {
  return "\\u" + QString::number(character.unicode(), 16).rightJustified(4, '0').toUpper();
}

}  // namespace

QString plain(const QString& text) {
  QString result;
  result.reserve(text.size());
  for (qsizetype at = 0; at < text.size(); ++at)
    if (actsUnseen(text[at]) || isHalf(text, at))
      result += written(text[at]);
    else
      result += text[at];
  return result;
}

QString breakable(const QString& text) {
  QString result;
  qsizetype length = 0;
  for (const QChar character : text) {
    length = character.isSpace() ? 0 : length + 1;
    if (length > kLongestWord && !character.isLowSurrogate()) {
      result += QChar(kZeroWidthSpace);
      length = 1;
    }
    result += character;
  }
  return result;
}

QString escaped(const QString& text) {
  QString shown = plain(text);
  if (shown.size() > kLongestEscaped) shown = shown.first(kLongestEscaped - 1) + u'…';
  return "<qt>" + breakable(shown).toHtmlEscaped() + "</qt>";
}

}  // namespace PlainText
