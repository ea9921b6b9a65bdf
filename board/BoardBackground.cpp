#include "board/BoardBackground.h"

namespace {

constexpr double kDense = 1.5;  // from here on the doubled picture looks right

}  // namespace

QImage boardBackground(double devicePixelRatio) {
  return QImage(devicePixelRatio >= kDense ? ":/pictures/background@2x.png"
                                           : ":/pictures/background.png");
}
