#pragma once

#include <QLabel>
#include <QPointer>

#include "platform/Form.h"
#include "play/Option.h"
#include "play/PlayWindows.h"

/// The first window: picture, title, version, and the ways to play, to the editor, to the maker's
/// web site and mail. Once it has been left it serves as the About box.
class frmSplash : public Form {
 public:
  explicit frmSplash(PlayWindows& windows);

 protected:
  void BuildControls() override;
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Resize() override;
  void Form_Escape() override;

 private:
  void buildTitle();
  void buildOptions();
  void imgPlay_Click();
  void imgEdit_Click();

  PlayWindows& windows_;
  QPointer<QLabel> Image1_;
  QPointer<QLabel> lblVersion_;
  QPointer<Option> visit_, email_, edit_, play_;
};
