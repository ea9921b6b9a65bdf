#include "viewer/HtmlText.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QTextDocumentFragment>
#include <algorithm>

#include "viewer/HelpTables.h"

namespace HtmlText {

namespace {

constexpr int kDeepestNesting = 100;
constexpr auto kAnyCase = QRegularExpression::CaseInsensitiveOption;

/// Text with its character references replaced. It holds no tags: a tag without an end would crash
/// this call in Qt 6.4.
QString plain(QString text) {
  if (text.contains('&'))
    text = QTextDocumentFragment::fromHtml(text.replace('<', "&lt;")).toPlainText();
  return text.simplified();
}

}  // namespace

QString decode(const QByteArray& page) {
  static const QRegularExpression declared("<meta[^>]*charset", kAnyCase);
  constexpr qsizetype kHead = 2048;
  if (declared.match(QString::fromLatin1(page.first(std::min(kHead, page.size())))).hasMatch()) {
    QStringDecoder decoder = QStringDecoder::decoderForHtml(page);
    if (decoder.isValid()) return decoder(page);
  }
  return HelpTables::text(page);
}

QString title(const QString& html) {
  static const QRegularExpression element("<title[^>]*>([^<]{0,500})", kAnyCase);
  return plain(element.match(html).captured(1));
}

QString words(const QString& html) {
  static const QRegularExpression unseen("<(script|style|head)\\b.*?</\\1\\s*>",
                                         kAnyCase | QRegularExpression::DotMatchesEverythingOption);
  static const QRegularExpression tag("<[^>]*>?");
  QString text = html;
  return plain(text.remove(unseen).replace(tag, " "));
}

QString attribute(const QString& attributes, const QString& name) {
  static const QRegularExpression pair("([a-z-]+)\\s*=\\s*(\"([^\"]*)\"|'([^']*)'|([^\\s\"'>]+))",
                                       kAnyCase);
  for (auto pairs = pair.globalMatch(attributes); pairs.hasNext();) {
    const QRegularExpressionMatch match = pairs.next();
    if (match.captured(1).compare(name, Qt::CaseInsensitive) == 0)
      return plain(match.captured(3) + match.captured(4) + match.captured(5));
  }
  return {};
}

bool nestedTooDeeply(const QString& html) {
  static const QRegularExpression block("<(/?)(?:table|ul|ol|dl|div|blockquote)\\b", kAnyCase);
  int depth = 0;
  for (auto blocks = block.globalMatch(html); blocks.hasNext();) {
    depth = std::max(0, depth + (blocks.next().captured(1).isEmpty() ? 1 : -1));
    if (depth > kDeepestNesting) return true;
  }
  return false;
}

}  // namespace HtmlText
