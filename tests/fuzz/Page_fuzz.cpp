// Feeds damaged pages to the viewer: to what reads their words, links and tables of contents, and,
// as the browser does, to the text engine that lays them out.
#include <QGuiApplication>
#include <QTextDocument>
#include <cstddef>
#include <cstdint>

#include "viewer/HtmlText.h"
#include "viewer/SiteMap.h"

namespace {

constexpr double kPageWidth = 600;

/// A page that gets nothing from outside.
class Page : public QTextDocument {
 protected:
  QVariant loadResource(int /*type*/, const QUrl& /*name*/) override { return QByteArray(""); }
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QGuiApplication(*argc, *argv);  // never deleted: leaks of its fonts would be reported
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QString html = HtmlText::decode(
      QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
  SiteMap::parse(html);
  HtmlText::words(html);
  HtmlText::title(html);
  if (HtmlText::nestedTooDeeply(html)) return 0;
  Page page;
  page.setHtml(html);
  page.setTextWidth(kPageWidth);
  page.size();
  return 0;
}
