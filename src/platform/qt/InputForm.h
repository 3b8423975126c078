#pragma once
// frmInput on the Linux desktop: a modal dialog over the main window with the prompt (lblCaption), the
// text line (txtInput), OK (cmdOK) and Cancel (cmdCancel).

namespace pd {

struct FrmInput;

// Shows the form until one of its buttons hides it; the buttons run the form's own handlers. Closing the
// window otherwise leaves the form visible, which the caller takes as Cancel.
void ShowInputForm(FrmInput& form);

} // namespace pd
