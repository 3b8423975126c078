#pragma once
// The state of tags, type-to-find and the shortcut properties: the tag menus' live entries, the
// type-to-find panel's controls (its search field and list, the found shortcut's label and icon) and
// the hooks by which the view shows menus and dialogs that the core opens. Made at its first use by
// Find(ws).

#include <QString>

#include <cstdint>
#include <functional>
#include <vector>

namespace pd {

class Workspace;
class Element;
struct FrmEditLink;

struct FindState {
    // --- tags ---
    // Entries of the tag menus that show now: mnuTagsItem(0 .. TagsItemCount - 1) and
    // mnuSubItem(0 .. SubItemCount - 1). Entries above are hidden rather than removed.
    int TagsItemCount = 1;
    int SubItemCount = 1;
    // The icon (PicIcon index) that the asterisk was last placed over.
    int HoveredIcon = -1;

    // --- the toolbar's colour swatch: where the button went down, and whether it moved the toolbar ---
    float ColorPressX = 0;
    float ColorPressY = 0;
    bool ColorDragged = false;

    // --- the type-to-find panel ---
    // cboSearch: its edit field, the caret, its drop-down list and the list's current entry (-1 none).
    QString cboSearchText;
    int SelStart = 0;
    std::vector<QString> cboSearchList;
    int ListIndex = -1;
    // lblJumpToLink's caption and what PicJumpToIcon shows (an icon picture as the icon boxes take it:
    // "fileicon:<path>", "themeicon:<name>", "noicon:").
    QString lblJumpToLink;
    QString JumpToIcon;
    // The hourglass shows while the list is filled.
    bool Busy = false;
    // The search field is to take the keyboard focus (the view clears it once done).
    bool FocusSearch = false;

    // Called after every change of the panel's state above; set by the view.
    std::function<void()> onChanged;
    void changed() {
        if (onChanged) onChanged();
    }

    // --- what the view provides ---
    // Pops up a menu by name at the pointer and returns once it has closed (a chosen entry has run).
    std::function<void(const QString& menu)> onPopupMenu;
    // Shows the loaded "Shortcut Properties" dialog modally; returns once it has closed.
    std::function<void(FrmEditLink& form)> onShowEditLink;
    // The colours of an element's pixels as drawn on the screen, row by row (0x00BBGGRR); empty when
    // the element is not drawn.
    std::function<std::vector<int32_t>(Element& e)> onReadPixels;
};

// The state of the workspace, made at its first use.
FindState& Find(Workspace& ws);

} // namespace pd
