#pragma once

#include <QEvent>

/// Whether a widget may have another devicePixelRatio() after the event. Until Qt 6.5 a change of
/// screen tells of it; since 6.6 that comes before the ratio changes, and an event of its own
/// after.
inline bool mayChangeDensity(const QEvent& event) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  if (event.type() == QEvent::DevicePixelRatioChange) return true;
#endif
  return event.type() == QEvent::ScreenChangeInternal;
}
