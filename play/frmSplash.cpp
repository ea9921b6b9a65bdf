#include "play/frmSplash.h"

#include <QPushButton>

#include "platform/DensePicture.h"
#include "platform/LargeText.h"
#include "platform/Program.h"
#include "platform/Twips.h"
#include "play/basStartup.h"
#include "play/frmMain.h"
#include "services/basHTMLHelp.h"
#include "services/basKelvoEMail.h"
#include "services/basKelvoWinAPI.h"

namespace {

constexpr double kLabelTop = 4140;  // twips

}  // namespace

frmSplash::frmSplash(PlayWindows& windows)
    : Form({.title = Program::kTitle,
            .border = Border::FixedDialog,
            .client = {7008, 4476},
            .back = {192, 192, 255},
            .activation = Activation::BeforePaint}),
      windows_(windows) {}

void frmSplash::BuildControls() {
  Image1_ = new QLabel(Client());
  Image1_->setObjectName("Image1");
  Image1_->setAccessibleName("Picture of the game");
  Image1_->setScaledContents(true);
  Image1_->setPixmap(QPixmap::fromImage(densePicture("splash.png")));
  Twips::place(*Image1_, 120, 60, 2484, 3456);
  buildTitle();
  buildOptions();
  basHTMLHelp::ShowHelpOnF1(*this, basHTMLHelp::Topic::Splash);
  Client()->setFocus();  // Enter plays; no option is marked before Tab is pressed

  // Never seen: it lies below the client area, where as the default button it answers Enter.
  auto* cmdPlay = new QPushButton("Play", Client());
  cmdPlay->setObjectName("cmdPlay");
  cmdPlay->setFocusPolicy(Qt::NoFocus);
  cmdPlay->setDefault(true);
  Twips::place(*cmdPlay, 4560, 5940, 615, 255);
  QObject::connect(cmdPlay, &QPushButton::clicked, cmdPlay, [this] { imgPlay_Click(); });
}

void frmSplash::buildTitle() {
  auto* lblTitle1 = new QLabel(Program::kTitle, Client());
  lblTitle1->setObjectName("lblTitle1");
  QFont font;
  font.setFamilies({"Times New Roman", "Liberation Serif", "DejaVu Serif", "Serif"});
  font.setPointSizeF(33 * LargeText::factor(*lblTitle1));
  font.setBold(true);
  lblTitle1->setFont(font);
  lblTitle1->setAlignment(Qt::AlignCenter);
  Twips::place(*lblTitle1, 2820, 0, 4032, 792);

  lblVersion_ = new QLabel("Version", Client());
  lblVersion_->setObjectName("lblVersion");
  lblVersion_->setFont(ControlFont(*lblVersion_));
  lblVersion_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  Twips::place(*lblVersion_, 5640, 840, 1212, 252);
}

void frmSplash::buildOptions() {
  visit_ = new Option(Client(), "visit", "Visit us", "Open the maker's web site");
  visit_->placePicture(1212, 3660);
  email_ = new Option(Client(), "eMail", "Email us", "Write a mail to the maker");
  email_->placePicture(2220, 3660);
  edit_ = new Option(Client(), "edit", "Edit", "Make puzzles of your own");
  edit_->placePicture(5376, 3600);
  play_ = new Option(Client(), "play", "Play", "Play a puzzle");
  play_->placePicture(6360, 3600);
  play_->label()->setObjectName("Play");
  QObject::connect(visit_, &Option::clicked, visit_, [] { basKelvoEMail::VisitWebSite(); });
  QObject::connect(email_, &Option::clicked, email_, [] { basKelvoEMail::SendSupportMail(); });
  QObject::connect(edit_, &Option::clicked, edit_, [this] { imgEdit_Click(); });
  QObject::connect(play_, &Option::clicked, play_, [this] { imgPlay_Click(); });
}

void frmSplash::Form_Load() {
  lblVersion_->setText("Version " + QString::fromStdString(Program::versionText()));
  Program::ColorDepth = basKelvoWinAPI::GetDeviceCaps(*Window(), basKelvoWinAPI::BITSPIXEL);
  if (Program::ColorDepth >= Program::kDeepColour) return;
  const QPixmap fewColours = QPixmap::fromImage(densePicture("about256.bmp"));
  if (!fewColours.isNull()) Image1_->setPixmap(fewColours);
}

void frmSplash::Form_Activate() {
  if (!basStartup::fSplashDone) return;
  edit_->showOption(false);
  const bool fromGame = Window()->parentWidget() == windows_.Main->Window();
  play_->say("Ok", fromGame ? "Back to the game" : "Back to the editor");
  Form_Resize();
}

void frmSplash::Form_Resize() {
  for (Option* option : {visit_.data(), email_.data(), edit_.data(), play_.data()})
    option->centreLabel(kLabelTop);
}

void frmSplash::Form_Escape() {
  if (basStartup::fSplashDone) Unload();
}

void frmSplash::imgPlay_Click() {
  const bool aboutBox = basStartup::fSplashDone;
  basStartup::fSplashDone = true;
  Unload();
  if (!aboutBox) windows_.Main->Show();
}

void frmSplash::imgEdit_Click() {
  basStartup::fSplashDone = true;
  Unload();
  if (windows_.ShowEditor) windows_.ShowEditor();
}
