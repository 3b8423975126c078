#pragma once
// Tags and launch marks. A shortcut's tags are a comma-separated list; a tag chosen from the menu
// filters the workspace down to the shortcuts that carry it, with a banner that ends the filter. A launch
// mark is one tag that puts a border on its shortcut when it starts and takes it off when another
// shortcut with that tag starts.

#include <QString>
#include <QStringList>

namespace pd {

class Workspace;

// Cuts a list at its commas: each piece trimmed, empty pieces dropped.
QStringList SplitTags(const QString& Tags);
// Fills mnuTagsItem with every tag in order of first appearance. A tag counts as seen when the text
// of the tags listed so far contains it (so "art" after "party" is no new entry), compared exactly.
void BuildTagsMenu(Workspace& ws);
// Hides every shortcut whose tags do not contain Tag (ignoring case), and the containers left without a
// visible shortcut, and shows the banner over the highest shortcut left.
void FilterByTag(Workspace& ws, int n, const QString& Tag);
// Shows every hidden shortcut and the containers the filter hid; hides the banner.
void ShowAllTags(Workspace& ws);
// Whether a tag filter is on (its banner shows).
bool TagFilterOn(Workspace& ws);
// The menu entries: a tag of the tags menu, a tag of one shortcut's pop-up.
void mnuTagsItem_Click(Workspace& ws, int Index);
void mnuSubItem_Click(Workspace& ws, int Index);
// Asks for a new list ("Edit Tags (separate with commas) -"); a blank answer for a list that was not
// blank asks "Delete Tags?" first. Saves the workspace. Returns the list.
QString EditTags(Workspace& ws, const QString& Current);
// Pops up the tags of SelectedLink.
void ShowLinkTagsMenu(Workspace& ws);
// "Edit &Tags...": the new list goes to every selected shortcut.
void mnuTag_Click(Workspace& ws);
// "Mark on &Launch..." / "Remove Mark on &Launch...".
void mnuLinkMakeExclusive_Click(Workspace& ws);
// The caption of the mark entry for SelectedLink, set when the shortcut's menu opens.
void UpdateMarkCaption(Workspace& ws);
// The first shortcut drawn by icon box m; -1 for none.
int LinkForIcon(Workspace& ws, int m);
int LinkForHoveredIcon(Workspace& ws);
// A hover over icon box m: the asterisk over the icon that gives or shows the shortcut's tags.
void PicIcon_MouseMove(Workspace& ws, int m);
// A release on the asterisk: Button 1 left, 2 right.
void ImgLinkGroup_MouseUp(Workspace& ws, int Button);
// A left click on the banner ends the filter.
void LblLinkGroup_Click(Workspace& ws);

} // namespace pd
