#include "platform/FileChooser.h"

#include <QChildEvent>
#include <QFontMetrics>
#include <QMessageBox>

#include "platform/Dialogs.h"
#include "platform/PlainText.h"
#include "platform/Sandbox.h"

namespace {

constexpr int kWidestName = 400;  // logical pixels of a name inside a question

QString inQuestion(const QString& name, const QWidget& widget) {
  return widget.fontMetrics().elidedText(PlainText::plain(name), Qt::ElideMiddle, kWidestName);
}

}  // namespace

FileChooser::FileChooser(QWidget* parent, const QString& title, const QString& folder,
                         const QString& filter, const QString& extension)
    : QFileDialog(parent, title, folder, filter),
      ending_(extension.isEmpty() ? QString() : "." + extension) {
  setOption(DontUseNativeDialog, !Sandbox::isAround());
  setOption(DontConfirmOverwrite);
  setFileMode(AnyFile);
}

void FileChooser::preset(const QString& file) {
  const QFileInfo info(file);
  selectFile(info.dir().exists() ? file : info.fileName());
}

QString FileChooser::chosen() const {
  const QString typed = selectedFiles().value(0);
  if (granted_ || (acceptMode() == AcceptOpen && QFileInfo(typed).isFile())) return typed;
  return typed.endsWith(ending_, Qt::CaseInsensitive) ? typed : typed + ending_;
}

bool FileChooser::mayBeTaken(const QString& file) const {
  if (acceptMode() == AcceptOpen || !asksBeforeReplacing || !QFileInfo(file).isFile()) return true;
  const QString name = inQuestion(QFileInfo(file).fileName(), *this);
  const QString question = name + " already exists.\nDo you want to replace it?";
  return Dialogs::askYesNo(question.toStdString()) == Dialogs::Answer::Yes;
}

void FileChooser::accept() {
  const QString typed = selectedFiles().value(0);
  const bool isFolder = typed.isEmpty() || QFileInfo(typed).isDir();  // to be entered, not taken
  granted_ = testAttribute(Qt::WA_DontShowOnScreen);
  if (granted_ || isFolder || mayBeTaken(chosen())) QFileDialog::accept();
}

/// The toolkit's own questions (before it deletes a file) name files; they shall not take a name
/// for markup.
void FileChooser::childEvent(QChildEvent* event) {
  if (event->added()) event->child()->installEventFilter(this);
  QFileDialog::childEvent(event);
}

bool FileChooser::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::Polish)
    if (auto* box = qobject_cast<QMessageBox*>(object)) box->setTextFormat(Qt::PlainText);
  return QFileDialog::eventFilter(object, event);
}
