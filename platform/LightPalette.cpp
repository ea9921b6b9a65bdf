#include "platform/LightPalette.h"

QPalette lightPalette(const QColor& back) {
  const QColor button(236, 236, 244), text(24, 24, 40), faint(130, 130, 150);
  QPalette palette(button, back);
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const QColor ink = group == QPalette::Disabled ? faint : text;
    palette.setColor(group, QPalette::WindowText, ink);
    palette.setColor(group, QPalette::Text, ink);
    palette.setColor(group, QPalette::ButtonText, ink);
    palette.setColor(group, QPalette::Base, Qt::white);
    palette.setColor(group, QPalette::AlternateBase, QColor(244, 244, 250));
    palette.setColor(group, QPalette::ToolTipBase, QColor(255, 255, 232));
    palette.setColor(group, QPalette::ToolTipText, text);
    palette.setColor(group, QPalette::Highlight, QColor(72, 72, 168));
    palette.setColor(group, QPalette::HighlightedText, Qt::white);
    palette.setColor(group, QPalette::Link, QColor(48, 48, 160));
    palette.setColor(group, QPalette::PlaceholderText, faint);
  }
  return palette;
}
