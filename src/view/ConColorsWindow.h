#pragma once
// The Container Colors window (frmConColors): two colour boxes, Switch, Reset, OK and Cancel, mirroring
// themes/ThemeState's FrmConColors. Object names are the element names.

#include <QDialog>

class QPushButton;

namespace pd {

class Workspace;

class ConColorsWindow : public QDialog {
  public:
    explicit ConColorsWindow(Workspace& ws);
    ~ConColorsWindow() override;
    void sync();

  protected:
    void reject() override;

  private:
    Workspace& ws_;
    QPushButton* back_ = nullptr;
    QPushButton* fore_ = nullptr;
    bool closing_ = false;
};

} // namespace pd
