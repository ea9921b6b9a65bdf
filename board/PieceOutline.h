#pragma once

#include <QPolygonF>

#include "model/PENTO.h"

/// The line round a piece in cells from its corner. These are whole numbers, so that the sides of
/// neighbours fall together.
QPolygonF outlineOf(const PENTO& piece);
