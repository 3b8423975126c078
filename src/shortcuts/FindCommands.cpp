// The entries of tags, launch marks, shortcut properties and style, verification and relative paths,
// and the workspace's FindState.

#include "shortcuts/FindCommands.h"

#include "app/workspace/Workspace.h"
#include "shortcuts/EditLink.h"
#include "shortcuts/FindState.h"
#include "shortcuts/Tags.h"
#include "shortcuts/VerifyLinks.h"

namespace pd {

namespace {

// The entries of the shared menu that belong to a shortcut alone.
const char* const kLinkEntries[] = {"mnuSepLinkTags", "mnuTag", "mnuLinkMakeExclusive", "mnuLinkReset",
                                    "mnuRelativePath"};

} // namespace

FindState& Find(Workspace& ws) {
    if (!ws.FindStateSlot) ws.FindStateSlot = std::make_shared<FindState>();
    return *ws.FindStateSlot;
}

void WireFindCommands(Workspace& ws) {
    Workspace* w = &ws;
    Find(ws);
    Menus& m = ws.menus;
    // The background's menu: the tags and the check of all targets.
    m.add(QStringLiteral("mnuSepTags"), QStringLiteral("-"), QStringLiteral("mnuMain"));
    m.add(QStringLiteral("mnuTagsMain"), QStringLiteral("&Tags"), QStringLiteral("mnuMain"));
    m.add(QStringLiteral("mnuUnhideTags"), QStringLiteral("Show All"), QStringLiteral("mnuTagsMain"));
    m.add(QStringLiteral("mnuSepTagsItem"), QStringLiteral("-"), QStringLiteral("mnuTagsMain"));
    m.add(QStringLiteral("mnuTagsItem"), QStringLiteral("[No Tags]"), QStringLiteral("mnuTagsMain"), 0);
    m.add(QStringLiteral("mnuVerify"), QStringLiteral("&Verify"), QStringLiteral("mnuMain"));
    // The shortcut's menu.
    m.add(QStringLiteral("mnuSepLinkTags"), QStringLiteral("-"), QStringLiteral("mnuLink"));
    m.add(QStringLiteral("mnuTag"), QStringLiteral("Edit &Tags..."), QStringLiteral("mnuLink"));
    m.add(QStringLiteral("mnuLinkMakeExclusive"), QStringLiteral("Mark on &Launch..."),
          QStringLiteral("mnuLink"));
    m.add(QStringLiteral("mnuLinkReset"), QStringLiteral("&Reset"), QStringLiteral("mnuLink"));
    m.add(QStringLiteral("mnuRelativePath"), QStringLiteral("Change to &Relative Path"),
          QStringLiteral("mnuLink"));
    // The pop-up of one shortcut's tags, and the colour swatch's menu on the shortcut toolbar.
    m.add(QStringLiteral("mnuTags"), QStringLiteral("Tags"));
    m.add(QStringLiteral("mnuSubItem"), QString(), QStringLiteral("mnuTags"), 0);
    m.add(QStringLiteral("mnuChangeColor"), QStringLiteral("Color"));
    m.add(QStringLiteral("mnuChooseColor"), QStringLiteral("&Choose Color"),
          QStringLiteral("mnuChangeColor"));
    m.add(QStringLiteral("mnuColorFromIcon"), QStringLiteral("Color from &Icon"),
          QStringLiteral("mnuChangeColor"));
    m.share(QStringLiteral("mnuLinkReset"), QStringLiteral("mnuChangeColor"));

    m[QStringLiteral("mnuUnhideTags")].onClick = [w] { ShowAllTags(*w); };
    m(QStringLiteral("mnuTagsItem"), 0).onClick = [w] { mnuTagsItem_Click(*w, 0); };
    m(QStringLiteral("mnuSubItem"), 0).onClick = [w] { mnuSubItem_Click(*w, 0); };
    m[QStringLiteral("mnuVerify")].onClick = [w] { VerifyLinks(*w, false); };
    m[QStringLiteral("mnuTag")].onClick = [w] { mnuTag_Click(*w); };
    m[QStringLiteral("mnuLinkMakeExclusive")].onClick = [w] { mnuLinkMakeExclusive_Click(*w); };
    m[QStringLiteral("mnuLinkReset")].onClick = [w] { mnuLinkReset_Click(*w); };
    m[QStringLiteral("mnuRelativePath")].onClick = [w] { mnuRelativePath_Click(*w); };
    m[QStringLiteral("mnuChooseColor")].onClick = [w] { mnuChooseColor_Click(*w); };
    m[QStringLiteral("mnuColorFromIcon")].onClick = [w] { mnuColorFromIcon_Click(*w); };
    // The same entry renames a container and opens a shortcut's properties, by its caption.
    MenuEntry& edit = m[QStringLiteral("mnuLinkEdit")];
    std::function<void()> rename = edit.onClick;
    edit.onClick = [w, rename] {
        if (w->menus[QStringLiteral("mnuLinkEdit")].Caption() == QLatin1String("&Properties"))
            mnuLinkEdit_Click(*w);
        else if (rename)
            rename();
    };
    // No drag has happened before the first press: a start from the keyboard is not refused.
    if (ws.MouseDownLink == -1) ws.MouseDownLink = 0;
}

void PrepareMainMenu(Workspace& ws) {
    BuildTagsMenu(ws);
}

void PrepareLinkMenu(Workspace& ws) {
    const bool onLink = !ws.menus[QStringLiteral("mnuDeleteContainer")].Visible();
    for (const char* name : kLinkEntries)
        ws.menus[QString::fromLatin1(name)].setVisible(onLink);
    if (onLink) UpdateMarkCaption(ws);
}

} // namespace pd
