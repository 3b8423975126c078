#pragma once
// The state of the desk objects that no element or record holds: the note focus, the brief unlock, the
// reminder faces, the open alarm windows and their fade, and the hooks by which the view shows the two
// reminder windows.

#include "app/clock/Clock.h"

#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace pd {

class Workspace;
class Element;
struct ReminderForm;
struct ShowReminderForm;

// What SetReminder printed on a reminder's icon: the date over the time, centred, in bold.
struct ReminderFace {
    QString Date;
    QString Time;
};

struct DeskState {
    explicit DeskState(Clock& clock);
    DeskState(const DeskState&) = delete;
    DeskState& operator=(const DeskState&) = delete;

    // A note's text box has the keyboard focus: the window's keys are the note's, but Ctrl+A.
    bool NoteHasFocus = false;
    // Where the last press on an imgPicture or a reminder's picTemp went down, in the element's twips.
    float PicPressX = 0;
    float PicPressY = 0;

    // Locks the workspace again ten seconds after a brief unlock.
    Timer TimerBrieflyUnlock;
    // Steps the fade-in of the newest alarm window.
    Timer FadeInReminder;
    // The opacity reached by the fade, kept between ticks.
    int32_t FadeAlpha = 0;
    // The window name of the last alarm fired ("frmShowReminder_3"); the fade works on it alone.
    QString ReminderWindow;
    // Numbers the alarm windows of this run.
    int AlarmSerial = 0;

    // The faces printed on reminder icons, by desk object index.
    std::map<int, ReminderFace> Faces;

    // The alarm windows now open, oldest first.
    std::vector<std::shared_ptr<ShowReminderForm>> Alarms;

    // --- set by the view; null when headless (the tests set them to script the windows) ---
    // Shows frmReminder modally and returns when it has been unloaded (Done or Clear, or closed).
    std::function<void(ReminderForm&)> showReminderForm;
    // A new alarm window was loaded: the view makes and shows its window (hidden first: see Visible).
    std::function<void(ShowReminderForm&)> onAlarmLoaded;
    // A reminder face changed (printed or cleared).
    std::function<void(int)> onFaceChanged;
    // Selects the whole text of a note's text box.
    std::function<void(Element&)> onSelectAllInNote;
};

// The desk objects' state of the workspace, made at its first use.
DeskState& Desk(Workspace& ws);

// Gives the desk objects' menu entries, keys, timers and the alarm check their commands.
void WireDeskCommands(Workspace& ws);

} // namespace pd
