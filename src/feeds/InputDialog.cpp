#include "feeds/InputDialog.h"

#include "app/workspace/Workspace.h"

namespace pd {

void FrmInput::cmdOK_Click() {
    Visible = false;
    lblCaption = txtInput;
}

void FrmInput::cmdCancel_Click() {
    Visible = false;
    lblCaption.clear();
}

void DisplayInput(FrmInput& form, const QString& prompt, const QString& value) {
    form.lblCaption = prompt;
    form.txtInput = value;
    form.OnTop = true;
}

QString AskInput(Workspace& ws, const QString& prompt, const QString& value) {
    FrmInput form;
    form.Loaded = true;
    DisplayInput(form, prompt, value);
    form.Visible = true;
    ws.platform.showInputForm(form);
    // Whatever closed the window without a button (the window manager's close) counts as Cancel.
    if (form.Visible) form.cmdCancel_Click();
    const QString answer = form.lblCaption;
    form = FrmInput{};
    return answer;
}

} // namespace pd
