// Shortcut properties: the dialog over one shortcut, and the style commands over the selection
// (reset, the colour chooser, the colour of the icon) with the toolbar's colour swatch.

#include "shortcuts/EditLink.h"

#include "app/WorkspaceFile.h"
#include "app/workspace/Workspace.h"
#include "desk/Lock.h"
#include "shortcuts/FindState.h"
#include "shortcuts/LinkLayout.h"
#include "shortcuts/LinkSelection.h"
#include "window/AutoHide.h"

#include <cmath>

namespace pd {

namespace {

bool HasCaption(Workspace& ws, int k) {
    return k >= 0 && k < static_cast<int>(ws.Links.size()) && ws.Link.exists(k) &&
           !ws.Link(k).Caption.get().isEmpty();
}

// The shortcut's style back to the defaults: its owner's colour, the workspace's font size, not bold.
void ResetStyle(Workspace& ws, int n) {
    Element& label = ws.Link(n);
    LinkRecord& r = ws.Links[static_cast<size_t>(n)];
    label.ForeColor = LinkOwner(ws, n).ForeColor.get();
    label.FontSize = ws.LinkFontSize;
    label.FontBold = false;
    r.Bold = false;
    r.LinkColor = -1;
    r.Size = ws.LinkFontSize;
}

// A channel's mean as a whole number: halves go to the even neighbour, as the conversion to an integer
// rounds.
int RoundChannel(double v) {
    return static_cast<int>(std::nearbyint(v));
}

} // namespace

void LoadEditLink(Workspace& ws, FrmEditLink& form, int n) {
    const LinkRecord& r = ws.Links[static_cast<size_t>(n)];
    const Element& label = ws.Link(n);
    form.Link = n;
    form.txtPath = r.LinkPath;
    form.txtParam = r.LinkParam;
    form.txtIcon = r.LinkIcon;
    form.PicLinkColor = label.ForeColor;
    form.ChkBold = label.FontBold;
    form.chkConfirm = r.Confirm;
    form.txtSize = QString::number(static_cast<double>(label.FontSize.get()));
    form.ChkCommand = r.Command == 1;
    // The command box's handler runs once, so that a command shortcut opens in the command's layout.
    ChkCommand_Click(form);
    form.txtLabel = label.Caption;
}

void mnuLinkEdit_Click(Workspace& ws) {
    // On a container the same entry renames it; that is the container's own command.
    const int n = ws.SelectedLink;
    if (!HasCaption(ws, n)) return;
    // The editor reaches a locked workspace too (F2, the find panel); it opens the lock for a short
    // spell, which ends by itself ten seconds later.
    UnlockBriefly(ws);
    EnableDisableTimerHide(ws, false);
    FrmEditLink form;
    LoadEditLink(ws, form, n);
    form.Visible = true;
    if (FindState& f = Find(ws); f.onShowEditLink) f.onShowEditLink(form);
    // A window closed without a button counts as Cancel.
    form.Visible = false;
    EnableDisableTimerHide(ws, true);
    SaveDesktop(ws, true, false);
}

void ChkCommand_Click(FrmEditLink& form) {
    const bool on = form.ChkCommand;
    if (on) {
        form.txtLabel = QStringLiteral("Command");
        form.txtPath.clear();
        form.Focus = QStringLiteral("txtParam");
    }
    form.txtPathVisible = !on;
    form.lblParam = on ? QStringLiteral("Command:") : QStringLiteral("Parameters:");
    form.lblParamBold = on;
    form.lblPathEnabled = !on;
    form.lblIconEnabled = !on;
    form.CmdBrowseEnabled = !on;
    form.cmdChooseFileIconEnabled = !on;
    form.changed();
}

void CmdBrowse_Click(Workspace& ws, FrmEditLink& form) {
    const QString file = ws.platform.chooseOpenFile(QStringLiteral("Open"), QStringLiteral("All Files (*.*)"),
                                                    QStringLiteral("*.*"));
    if (file.isEmpty()) return;
    form.txtPath = file;
    form.changed();
}

void cmdChooseFileIcon_Click(Workspace& ws, FrmEditLink& form) {
    const QString file = ws.platform.chooseOpenFile(QStringLiteral("Open"), QStringLiteral("All Files (*.*)"),
                                                    QStringLiteral("*.*"));
    if (file.isEmpty()) return;
    form.txtIcon = file;
    form.changed();
}

void EditLinkColor_Click(Workspace& ws, FrmEditLink& form) {
    const int32_t color = ws.platform.chooseColor(form.PicLinkColor);
    if (color == -1) return;
    form.PicLinkColor = color;
    form.changed();
}

void cmdEditCancel_Click(FrmEditLink& form) {
    form.Visible = false;
}

void cmdEditOK_Click(Workspace& ws, FrmEditLink& form) {
    const int n = form.Link;
    // A command shortcut with no command: the same as Cancel.
    if ((form.ChkCommand && form.txtParam.isEmpty()) || !HasCaption(ws, n)) {
        cmdEditCancel_Click(form);
        return;
    }
    Element& label = ws.Link(n);
    LinkRecord& r = ws.Links[static_cast<size_t>(n)];
    if (!form.txtLabel.trimmed().isEmpty()) label.Caption = form.txtLabel;
    if (!form.txtPath.trimmed().isEmpty()) r.LinkPath = form.txtPath;
    r.LinkIcon = form.txtIcon;
    r.LinkParam = form.txtParam;
    if (form.PicLinkColor != label.ForeColor) {
        label.ForeColor = form.PicLinkColor;
        r.LinkColor = form.PicLinkColor;
    }
    // A size that is no number is left out without a word; the other changes stand.
    bool numeric = false;
    const double size = form.txtSize.trimmed().toDouble(&numeric);
    if (numeric) label.FontSize = static_cast<float>(size);
    r.Command = form.ChkCommand ? 1 : 0;
    if (r.LinkType != 1.0f || form.ChkCommand) r.LinkType = 2;
    r.Confirm = form.chkConfirm;
    label.FontBold = form.ChkBold;
    r.Bold = form.ChkBold;
    MoveLinkIcon(ws, n);
    form.Visible = false;
}

void cmdReset_Click(Workspace& ws, FrmEditLink& form) {
    const int n = form.Link;
    if (!HasCaption(ws, n)) return;
    if (ws.platform.messageBox(QStringLiteral("Reset style to defualt values?"), MsgStyle::YesNoWarning) !=
        MsgAnswer::Yes)
        return;
    // Label, target, tags and mark stay; only the style goes back.
    ResetStyle(ws, n);
    ws.Links[static_cast<size_t>(n)].LinkIcon.clear();
    form.txtIcon.clear();
    // The dialog shows the style now in force, so that OK does not bring the old one back.
    form.PicLinkColor = ws.Link(n).ForeColor;
    form.ChkBold = false;
    form.txtSize = QString::number(ws.LinkFontSize);
    MoveLinkIcon(ws, n);
    form.changed();
}

void mnuLinkReset_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const int selected = ws.SelectedLink;
    if (HasCaption(ws, selected)) SetLinkSelected(ws, selected, true);
    if (ws.platform.messageBox(QStringLiteral("Reset selected shortcuts style to defualt values?"),
                               MsgStyle::YesNoWarning) == MsgAnswer::Yes) {
        const std::vector<int16_t> walk = ws.SelectedLinks;
        for (int16_t k : walk) {
            if (!HasCaption(ws, k)) continue;
            ResetStyle(ws, k);
            MoveLinkIcon(ws, k);
        }
        const int top = TopMostSelected(ws);
        if (top >= 0) ArrangeSelectedLinks(ws, top, false);
        if (HasCaption(ws, selected)) SetLinkSelected(ws, selected, true);
        SaveDesktop(ws, true, false);
    }
    EnableDisableTimerHide(ws, true);
}

void mnuChooseColor_Click(Workspace& ws) {
    EnableDisableTimerHide(ws, false);
    const int32_t color = ws.platform.chooseColor(ws.PicLinkColor(0).BackColor);
    if (color != -1) {
        for (int16_t k : ws.SelectedLinks) {
            if (!HasCaption(ws, k)) continue;
            ws.Link(k).ForeColor = color;
            ws.Links[static_cast<size_t>(k)].LinkColor = color;
        }
        ws.PicLinkColor(0).BackColor = color;
        SaveDesktop(ws, true, false);
    }
    EnableDisableTimerHide(ws, true);
}

int32_t MeanColor(const std::vector<int32_t>& pixels) {
    if (pixels.empty()) return -1;
    double red = 0, green = 0, blue = 0;
    for (int32_t p : pixels) {
        red += p & 0xFF;
        green += (p >> 8) & 0xFF;
        blue += (p >> 16) & 0xFF;
    }
    const double count = static_cast<double>(pixels.size());
    return RoundChannel(red / count) | (RoundChannel(green / count) << 8) |
           (RoundChannel(blue / count) << 16);
}

void ColorFromIcon(Workspace& ws, int n) {
    if (!HasCaption(ws, n)) return;
    FindState& f = Find(ws);
    if (!f.onReadPixels) return;
    const int32_t color = MeanColor(f.onReadPixels(IconBox(ws, n)));
    if (color == -1) return;
    ws.Link(n).ForeColor = color;
    ws.Links[static_cast<size_t>(n)].LinkColor = color;
}

void mnuColorFromIcon_Click(Workspace& ws) {
    const std::vector<int16_t> walk = ws.SelectedLinks;
    for (int16_t k : walk)
        ColorFromIcon(ws, k);
    SaveDesktop(ws, true, false);
}

void PicLinkColor_MouseDown(Workspace& ws, int Button, float X, float Y) {
    if (Button != 1) return;
    FindState& f = Find(ws);
    f.ColorPressX = X;
    f.ColorPressY = Y;
    f.ColorDragged = false;
}

void PicLinkColor_MouseMove(Workspace& ws, int Button, float X, float Y) {
    if (Button != 1) return;
    FindState& f = Find(ws);
    if (X == f.ColorPressX && Y == f.ColorPressY) return;
    // The swatch moves with the toolbar, so the pointer's place in it stays the offset to apply.
    Element& bar = ws.PicLinkToolbar(0);
    bar.Move(bar.Left + (X - f.ColorPressX), bar.Top + (Y - f.ColorPressY));
    f.ColorDragged = true;
}

QString PicLinkColor_MouseUp(Workspace& ws, int Button, float /*X*/, float /*Y*/) {
    FindState& f = Find(ws);
    const bool dragged = f.ColorDragged;
    f.ColorDragged = false;
    if (dragged && Button == 1) return {};
    // The reset is the shortcut menu's entry too, which a container's menu hides.
    ws.menus["mnuLinkReset"].setVisible(true);
    return QStringLiteral("mnuChangeColor");
}

} // namespace pd
