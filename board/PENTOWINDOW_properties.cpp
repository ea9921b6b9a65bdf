#include <stdexcept>

#include "board/AccessibleBoard.h"
#include "board/PENTOWINDOW.h"
#include "drawing/Rounding.h"

namespace {

constexpr QSize kAtlasDesign(1515, 1275);  // twips
constexpr double kDesignUnit = 15;         // twips per pixel of the design
constexpr std::int16_t kSunken = 1;

/// The box that takes the keys: focusable, never seen, and without the extras of a text field.
QLineEdit* makeKeyBox(QWidget* parent) {
  auto* box = new QLineEdit(parent);
  box->setObjectName("txtKey");
  box->setAccessibleName("Mirror the piece");
  box->setContextMenuPolicy(Qt::NoContextMenu);
  box->setAcceptDrops(false);
  return box;
}

}  // namespace

PENTOWINDOW::PENTOWINDOW(QWidget* parent)
    : PointerSurface(parent),
      pctFore_(new PictureBox(this)),
      txtKey_(makeKeyBox(this)),
      refusal_(new RefusalMark(this)),
      pace_(this,
            [this] {
              TrackCursor();
              pace_.rest(mayRest());
            }),
      atlas_(nearest(kAtlasDesign.width() / kDesignUnit),
             nearest(kAtlasDesign.height() / kDesignUnit)) {
  pctFore_->setObjectName("pctFore");
  pctFore_->Paint = [this] { pctFore_Paint(); };
  pctFore_->MouseMove = [this](double x, double y) { pctFore_MouseMove(x, y); };
  pctFore_->MouseDown = [this](Button b, double x, double y) { pctFore_MouseDown(b, x, y); };
  pctFore_->DblClick = [this](Button) { pctFore_DblClick(); };
  QObject::connect(txtKey_, &QLineEdit::textChanged, this, [this] { txtKey_Change(); });
  txtKey_->installEventFilter(this);
  setFocusProxy(txtKey_);
  AccessibleBoard::provideFor(*this);
}

void PENTOWINDOW::ReadProperties(const PropertyBag& bag) {
  BlockTexture(bag.ReadProperty("BlockTexture", QImage()));
  BackTexture(bag.ReadProperty("BackTexture", QImage()));
  Redraw = true;
  BorderStyle(bag.ReadProperty("BorderStyle", kSunken));
  Pickup(bag.ReadProperty("Pickup", true));
  pace_.start();
  DisplayHint(bag.ReadProperty("DisplayHint", false));
}

void PENTOWINDOW::WriteProperties(PropertyBag& bag) const {
  bag.WriteProperty("BlockTexture", BlockTexture(), QImage());
  bag.WriteProperty("BackTexture", BackTexture(), QImage());
  bag.WriteProperty("BorderStyle", BorderStyle(), kSunken);
  bag.WriteProperty("Pickup", Pickup(), true);
  bag.WriteProperty("DisplayHint", DisplayHint(), false);
}

void PENTOWINDOW::InitProperties() {
  Pickup(true);
  DisplayHint(false);
}

void PENTOWINDOW::BlockTexture(const QImage& picture) {
  atlas_.showUnscaled(picture);
}

void PENTOWINDOW::BackTexture(const QImage& picture) {
  composition_.background(picture);
  pctFore_Paint();
}

void PENTOWINDOW::Grid(PENTOGRID* grid) {
  grid_ = grid;
  fGridSet_ = true;
  pctFore_->makeStale();
}

PENTOGRID& PENTOWINDOW::assignedGrid() const {
  if (!grid_) throw std::logic_error("The board control has no grid yet.");
  return *grid_;
}

std::int16_t PENTOWINDOW::EmptyCount() const {
  const PENTOGRID& grid = assignedGrid();
  int count = 0;
  for (int x = 0; x < grid.Width(); ++x)
    for (int y = 0; y < grid.Height(); ++y)
      if (grid.PentoID(x, y) == PENTOGRID::kEmpty) ++count;
  return static_cast<std::int16_t>(count);
}

void PENTOWINDOW::MoveLeft() {
  assignedGrid().MoveLeft();
  PaintAll();
}

void PENTOWINDOW::MoveRight() {
  assignedGrid().MoveRight();
  PaintAll();
}

void PENTOWINDOW::MoveUp() {
  assignedGrid().MoveUp();
  PaintAll();
}

void PENTOWINDOW::MoveDown() {
  assignedGrid().MoveDown();
  PaintAll();
}
