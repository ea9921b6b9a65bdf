#pragma once

#include <QWidget>

/// Large text, for those who have set their desktop's font larger than 11 points: the lengths and
/// the fonts of a window grow together, by its size over 11, as far as the window still fits its
/// screen. Up to 11 points everything is as designed.
namespace LargeText {

/// How many times larger a window should be for the desktop's font; at least 1.
double wanted(const QWidget& window);

/// How many times larger the widget's window is than designed; at least 1.
double factor(const QWidget& widget);

/// Decides that for a new window. `designed`, `room`: its size as designed, and the most it may
/// have; logical pixels.
void decide(QWidget& window, const QSize& designed, const QSize& room);

}  // namespace LargeText
