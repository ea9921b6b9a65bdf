#include "play/Option.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

#include "drawing/Rounding.h"
#include "platform/DensePicture.h"
#include "platform/Form.h"
#include "platform/LargeText.h"
#include "platform/Twips.h"

namespace {

constexpr int kLabelMargin = 2;

QString capitalized(const QString& name) {
  return name.left(1).toUpper() + name.mid(1);
}

}  // namespace

Option::Option(QWidget* parent, const QString& name, const QString& caption, const QString& hint)
    : QAbstractButton(parent),
      picture_(
          QPixmap::fromImage(densePicture("option-" + name.toLower() + ".png",
                                          qApp->devicePixelRatio() * LargeText::factor(*parent)))),
      label_(new QLabel(parent)) {
  setObjectName("img" + capitalized(name));
  label_->setObjectName("lbl" + capitalized(name));
  label_->setFont(Form::ControlFont(*label_));
  label_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
  label_->setWordWrap(true);
  installEventFilter(this);
  label_->installEventFilter(this);
  say(caption, hint);
  setFocusPolicy(Qt::TabFocus);
}

void Option::placePicture(double left, double top) {
  const double unit = Twips::perPixel(*this);
  const int size = nearest(kSize * LargeText::factor(*this));
  setGeometry(nearest(left / unit), nearest(top / unit), size, size);
}

void Option::placeLabel(double left, double top, double width, double height) {
  Twips::place(*label_, left, top, width, height);
}

void Option::centreLabel(double top) {
  label_->setWordWrap(false);
  const QSize size = label_->sizeHint() + QSize(2 * kLabelMargin, 0);
  label_->setGeometry(x() + width() / 2 - size.width() / 2, nearest(top / Twips::perPixel(*this)),
                      size.width(), size.height());
}

void Option::say(const QString& caption, const QString& hint) {
  label_->setText(caption);
  setAccessibleName(caption);
  setToolTip(hint);
  label_->setToolTip(hint);
}

void Option::showOption(bool shown) {
  setVisible(shown);
  label_->setVisible(shown);
}

void Option::setPointers() {
  setCursor(pointer_.on(*this));
  label_->setCursor(pointer_.on(*this));
}

void Option::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(rect(), picture_);
  if (!hasFocus()) return;
  QPen pen(palette().color(QPalette::Highlight), 2);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(pen);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
}

void Option::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QAbstractButton::keyPressEvent(event);
}

bool Option::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::Enter) setPointers();
  if (object != label_) return QAbstractButton::eventFilter(object, event);
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      labelPressed_ = static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
      return true;
    case QEvent::MouseButtonDblClick:
      return true;
    case QEvent::MouseButtonRelease: {
      const bool inside = label_->rect().contains(static_cast<QMouseEvent*>(event)->pos());
      if (std::exchange(labelPressed_, false) && inside) click();
      return true;
    }
    default:
      return false;
  }
}
