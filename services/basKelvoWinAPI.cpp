#include "services/basKelvoWinAPI.h"

#include <cmath>

#include "drawing/Rounding.h"
#include "platform/Form.h"
#include "platform/Pointer.h"
#include "platform/Screen.h"

namespace basKelvoWinAPI {

namespace {

constexpr int kCaptionButtonHeight = 18;

}  // namespace

POINT GetCursorPos(const QWidget& context) {
  const QPointF position = Pointer::position() * context.devicePixelRatioF();
  return {static_cast<std::int32_t>(std::floor(position.x())),
          static_cast<std::int32_t>(std::floor(position.y()))};
}

void SetCursorPos(int x, int y, const QWidget& context) {
  Pointer::place(QPointF(x, y) / context.devicePixelRatioF(), *context.window());
}

RECT GetWindowRect(const QWidget& widget) {
  const double ratio = widget.devicePixelRatioF();
  const QPointF corner = QPointF(widget.mapToGlobal(QPoint(0, 0))) * ratio;
  const int left = nearest(corner.x()), top = nearest(corner.y());
  return {left, top, left + nearest(widget.width() * ratio),
          top + nearest(widget.height() * ratio)};
}

QWidget* GetActiveWindow() {
  return activeWindow();
}

int GetSystemMetrics(int index) {
  return index == SM_CYSIZE ? kCaptionButtonHeight : 0;
}

int GetDeviceCaps(const QWidget& window, int index) {
  return index == BITSPIXEL ? Screen::bitsPerPixel(window) : 0;
}

}  // namespace basKelvoWinAPI
