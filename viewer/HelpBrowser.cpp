#include "viewer/HelpBrowser.h"

#include <QHelpEvent>
#include <QPalette>
#include <QTextCursor>
#include <QToolTip>

#include "platform/PlainText.h"

namespace {

QString messagePage(const QString& title, const QString& text) {
  return "<html><head><title>" + title.toHtmlEscaped() + "</title></head><body><h2>" +
         title.toHtmlEscaped() + "</h2><p>" + PlainText::plain(text).toHtmlEscaped() +
         "</p></body></html>";
}

QPalette paper(QPalette palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    palette.setColor(group, QPalette::Base, Qt::white);
    palette.setColor(group, QPalette::Text, QColor(32, 32, 40));
    palette.setColor(group, QPalette::Link, QColor(40, 60, 170));
    palette.setColor(group, QPalette::LinkVisited, QColor(40, 60, 170));
  }
  return palette;
}

/// Stands for a picture that is not there.
QImage noPicture() {
  QImage image(1, 1, QImage::Format_ARGB32);
  image.fill(Qt::transparent);
  return image;
}

}  // namespace

HelpBrowser::HelpBrowser(QWidget* parent) : QTextBrowser(parent) {
  setPalette(paper(palette()));
  setOpenLinks(false);
  document()->setDocumentMargin(14);
  connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::follow);
}

void HelpBrowser::setBook(const HelpBook* book) {
  book_ = book;
  clearHistory();
}

void HelpBrowser::show(const QUrl& address) {
  setExtraSelections({});
  setSource(address, QTextDocument::HtmlResource);
}

void HelpBrowser::showMessage(const QString& title, const QString& text) {
  setHtml(messagePage(title, text));
}

void HelpBrowser::highlight(const QString& words) {
  QList<ExtraSelection> marks;
  QTextCharFormat mark;
  mark.setBackground(QColor(255, 236, 140));
  for (const QString& word : words.simplified().split(' ', Qt::SkipEmptyParts))
    for (QTextCursor at = document()->find(word); !at.isNull(); at = document()->find(word, at))
      marks.append({at, mark});
  setExtraSelections(marks);
  if (marks.isEmpty()) return;
  QTextCursor first = marks.first().cursor;
  first.clearSelection();
  setTextCursor(first);
}

/// The text engine would show a page's tool tips as rich text, with pictures from anywhere.
bool HelpBrowser::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QTextBrowser::viewportEvent(event);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString tip = cursorForPosition(help->pos()).charFormat().toolTip();
  QToolTip::showText(help->globalPos(), tip.isEmpty() ? tip : PlainText::escaped(tip), viewport());
  return true;
}

/// A null answer would let the text engine look among the files of the machine.
QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QUrl address = source().resolved(name);
  if (type == QTextDocument::ImageResource) {
    const QImage picture = book_ ? book_->picture(address) : QImage();
    return picture.isNull() ? noPicture() : picture;
  }
  if (type == QTextDocument::HtmlResource) return pageAt(address);
  const auto bytes = book_ ? book_->bytes(address) : std::nullopt;
  return bytes.value_or(QByteArray("")).append('\n');
}

QString HelpBrowser::pageAt(const QUrl& address) const {
  if (!book_ || !book_->contains(address))
    return messagePage(tr("Page not found"),
                       tr("This help file has no page %1.").arg(address.path()));
  const auto page = book_->page(address);
  if (!page)
    return messagePage(
        tr("Page not readable"),
        tr("The page %1 of this help file is damaged or cannot be shown.").arg(address.path()));
  return *page;
}

/// Old pages name their own file in links, as "ms-its:file.chm::/page.html".
void HelpBrowser::follow(const QUrl& link) {
  const QUrl address = link.toString().contains("::") ? HelpBook::address(link.toString()) : link;
  if (address.scheme() == "chm")
    show(address);
  else
    emit leftBook(address);
}
