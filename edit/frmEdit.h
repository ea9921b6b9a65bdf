#pragma once

#include <functional>

#include "platform/Form.h"

class frmEdit : public Form {
 public:
  frmEdit();
  std::function<void()> ShowPlay;
  std::function<void(Form& owner)> ShowAbout;
  std::function<void(bool)> SetChooserEdit;
  std::function<void(int command, int topic)> ShowHelp;

 protected:
  void BuildControls() override;
};
