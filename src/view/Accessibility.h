#pragma once
// What assistive technology (screen readers over AT-SPI) learns of the workspace: every element widget,
// headline row and clickable label gets a role and a name that fit what it is to the user. A shortcut is
// a link named by its label, with its target as description; a container is a grouping named by its
// title, and the title a heading; a note is an editable text; a picture button is a push button named by
// its tooltip; a headline row is a link named by its text. Clickable elements take the press action.

#include <QAccessible>

class QWidget;

namespace pd {

class Workspace;

// Installs the interface factory once; later calls do nothing. The element view calls it.
void InstallAccessibility();

// The workspace whose records give a shortcut's target and a container's title; null for none. The
// element view sets it while it lives.
void SetAccessibleWorkspace(const Workspace* ws);
const Workspace* AccessibleWorkspace();

// Tells assistive technology that the name (and so the description) of `w` changed.
void NotifyAccessibleNameChanged(QWidget* w);

// The accessible name of a widget named by a tooltip: its lines joined by blanks.
QString AccessibleTipName(const QString& tip);

} // namespace pd
