#pragma once
// Shortcut properties and style: the "Shortcut Properties" dialog (frmEditLink) over one shortcut, and
// the colour, colour-from-icon and reset commands over the selection.

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace pd {

class Workspace;

// The dialog's state while it is loaded; the view shows it and calls the handlers below.
struct FrmEditLink {
    QString Caption = QStringLiteral("Shortcut Properties");
    // The shortcut edited.
    int Link = -1;
    // The fields: label, target, parameters (or the command), icon file, font size.
    QString txtLabel;
    QString txtPath;
    QString txtParam;
    QString txtIcon;
    QString txtSize;
    // The colour swatch's colour (0x00BBGGRR).
    int32_t PicLinkColor = 0;
    bool ChkBold = false;
    bool chkConfirm = false;
    bool ChkCommand = false;
    // What the command box switches: the target field, the caption and weight of the parameters'
    // label, the labels of target and icon and the two browse buttons.
    bool txtPathVisible = true;
    QString lblParam = QStringLiteral("Parameters:");
    bool lblParamBold = false;
    bool lblPathEnabled = true;
    bool lblIconEnabled = true;
    bool CmdBrowseEnabled = true;
    bool cmdChooseFileIconEnabled = true;
    // The control to take the keyboard focus next ("txtParam"); the view clears it once done.
    QString Focus;
    bool Visible = false;

    // Called after the handlers changed the fields; set by the view while it shows the dialog.
    std::function<void()> onChanged;
    void changed() {
        if (onChanged) onChanged();
    }
};

// "&Properties" (F2 on a selected shortcut): loads the dialog with SelectedLink, shows it, and saves.
void mnuLinkEdit_Click(Workspace& ws);
// Fills a dialog from shortcut n (the steps of the opening).
void LoadEditLink(Workspace& ws, FrmEditLink& form, int n);
// The dialog's controls.
void ChkCommand_Click(FrmEditLink& form);
void CmdBrowse_Click(Workspace& ws, FrmEditLink& form);
void cmdChooseFileIcon_Click(Workspace& ws, FrmEditLink& form);
void EditLinkColor_Click(Workspace& ws, FrmEditLink& form);
void cmdEditOK_Click(Workspace& ws, FrmEditLink& form);
void cmdEditCancel_Click(FrmEditLink& form);
void cmdReset_Click(Workspace& ws, FrmEditLink& form);

// "&Reset": the selection's style back to the defaults, after asking.
void mnuLinkReset_Click(Workspace& ws);
// "&Choose Color": the desktop's colour chooser for the selection.
void mnuChooseColor_Click(Workspace& ws);
// "Color from &Icon": each selected shortcut takes the mean colour of its icon box.
void mnuColorFromIcon_Click(Workspace& ws);
// The mean colour of a list of pixels (0x00BBGGRR each), each channel rounded; -1 for none.
int32_t MeanColor(const std::vector<int32_t>& pixels);
// Shortcut n's label and record take the mean colour of its icon box, background included.
void ColorFromIcon(Workspace& ws, int n);
// The toolbar's colour swatch: a press keeps the point, a move with the button down moves the toolbar
// by the pointer's offset, a release in place opens the colour menu (returns its name, or empty).
void PicLinkColor_MouseDown(Workspace& ws, int Button, float X, float Y);
void PicLinkColor_MouseMove(Workspace& ws, int Button, float X, float Y);
QString PicLinkColor_MouseUp(Workspace& ws, int Button, float X, float Y);

} // namespace pd
