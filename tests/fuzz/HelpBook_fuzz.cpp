// Feeds damaged help files to their reader, and their pages to the text engine that shows them.
#include <QBuffer>
#include <QGuiApplication>
#include <QTextDocument>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "viewer/HelpBook.h"
#include "viewer/HtmlText.h"

namespace {

constexpr double kPageWidth = 600;
constexpr qsizetype kLongestLaidOut = 20000;

/// A page that gets nothing from outside.
class Page : public QTextDocument {
 protected:
  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return QByteArray(""); }
};

void layOut(const QString& html) {
  if (html.size() > kLongestLaidOut) return;
  Page page;
  page.setHtml(html);
  page.setTextWidth(kPageWidth);
  page.size();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QGuiApplication(*argc, *argv);  // never deleted: leaks of its fonts would be reported
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  auto buffer = std::make_unique<QBuffer>();
  buffer->setData(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  buffer->open(QIODevice::ReadOnly);
  const auto book = HelpBook::open(std::move(buffer));
  if (!book) return 0;
  book->topicPage(1000);
  for (const QUrl& address : book->pages()) {
    const auto html = book->page(address);
    if (!html) continue;
    HtmlText::words(*html);
    layOut(*html);
  }
  return 0;
}
