#pragma once

#include <QPalette>

/// A full light palette on the given window colour. Forms carry one of their own, because the
/// colours of a dark desktop would put white text on their light backgrounds.
QPalette lightPalette(const QColor& back);
