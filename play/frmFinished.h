#pragma once

#include "platform/Form.h"
#include "play/PlayWindows.h"

/// The dialog that celebrates a solved puzzle and offers four ways on: the same puzzle again,
/// another one, the editor, or leaving.
class frmFinished : public Form {
 public:
  explicit frmFinished(PlayWindows& windows);

 protected:
  void BuildControls() override;
  void Form_Load() override;

 private:
  void buildPicture();
  void buildOptions();
  void addOption(const QString& name, const QString& caption, const QString& hint,
                 double pictureLeft, double labelLeft, void (frmFinished::*action)());
  void imgRetry_Click();
  void imgOpen_Click();
  void imgEdit_Click();
  void imgQuit_Click();
  void closePlayWindow();

  PlayWindows& windows_;
};
