#pragma once

#include <QPointer>

#include "platform/Form.h"
#include "play/FirstMoment.h"
#include "play/PlayWindows.h"

/// The dialog that celebrates a solved puzzle and offers four ways on: the same puzzle again,
/// another one, the editor, or leaving. It opens beside the solved shape, where there is room.
class frmFinished : public Form {
 public:
  explicit frmFinished(PlayWindows& windows);

  /// It is open, and a press or a key is no longer taken for one that was meant for the board.
  bool TakesInput() const { return firstMoment_ && firstMoment_->over(); }

 protected:
  void BuildControls() override;
  void Form_Load() override;
  void Form_Resize() override;

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
  QPointer<FirstMoment> firstMoment_;
};
