#pragma once
// The program's one small question box: a prompt, a line of text, OK and Cancel. The answer comes back
// in the prompt label: the buttons only hide the window, the caller reads the label and then unloads it.

#include <QString>

namespace pd {

class Workspace;

// The state of the box while it is loaded. The platform shows it modally and presses one of its buttons.
struct FrmInput {
    // The window's caption: the program's name.
    QString Caption = QStringLiteral("Perchdock");
    // The prompt, and after a button the answer.
    QString lblCaption;
    // The text line.
    QString txtInput;
    bool Loaded = false;
    bool Visible = false;
    // Kept above other windows while it shows.
    bool OnTop = false;

    // OK: the window hides and the label takes the typed text.
    void cmdOK_Click();
    // Cancel: the window hides and the label is emptied.
    void cmdCancel_Click();
};

// Puts the prompt and the preset text into a loaded box and keeps it on top.
void DisplayInput(FrmInput& form, const QString& prompt, const QString& value);

// The calling order of every question: load the box, DisplayInput, show it modally over the main
// window, read the label, unload the box. Returns the answer; empty for Cancel or an emptied line.
QString AskInput(Workspace& ws, const QString& prompt, const QString& value);

} // namespace pd
