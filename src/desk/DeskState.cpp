#include "desk/DeskState.h"

#include "app/workspace/Workspace.h"
#include "desk/Lock.h"
#include "desk/Pictures.h"
#include "desk/Reminders.h"
#include "desk/ShowReminder.h"

namespace pd {

DeskState::DeskState(Clock& clock)
    : TimerBrieflyUnlock(clock, QStringLiteral("TimerBrieflyUnlock"), 10000),
      FadeInReminder(clock, QStringLiteral("FadeInReminder"), 20) {}

DeskState& Desk(Workspace& ws) {
    if (!ws.DeskStateSlot) {
        ws.DeskStateSlot = std::make_shared<DeskState>(ws.clock);
        DeskState& d = *ws.DeskStateSlot;
        Workspace* w = &ws;
        d.TimerBrieflyUnlock.onTimer = [w] { TimerBrieflyUnlock_Timer(*w); };
        d.FadeInReminder.onTimer = [w] { FadeInReminder_Timer(*w); };
    }
    return *ws.DeskStateSlot;
}

namespace {
void DeclareDeskMenus(Menus& menus) {
    // The menu of a picture or a reminder's icon.
    if (menus.has(QStringLiteral("mnuPicture"))) return;
    menus.add("mnuPicture", "Picture");
    menus.add("mnuReminderEdit", "&Edit Reminder...", "mnuPicture").setVisible(false);
    MenuEntry& lock = menus.add("mnuPicLock", "&Lock", "mnuPicture");
    lock.setCheckable(true);
    menus.add("mnuPicOriginalSize", "&Original Size", "mnuPicture");
    menus.add("mnuPicFroward", "Bring &Forward", "mnuPicture");
    menus.add("mnuPicSendToBack", "Send to &Back", "mnuPicture");
    menus.add("mnuSepPicture", "-", "mnuPicture");
    menus.add("mnuPicReplace", "&Replace Picture", "mnuPicture");
    menus.add("mnuPicDelete", "&Delete", "mnuPicture");
}
} // namespace

void WireDeskCommands(Workspace& ws) {
    Desk(ws);
    DeclareDeskMenus(ws.menus);
    Workspace* w = &ws;
    auto on = [&ws](const char* name, std::function<void()> f) {
        ws.menus[QString::fromLatin1(name)].onClick = std::move(f);
    };
    on("mnuLock", [w] { mnuLock_Click(*w); });
    on("mnuAddPicture", [w] { mnuAddPicture_Click(*w); });
    on("mnuAddReminder", [w] { mnuAddReminder_Click(*w); });
    on("mnuRemindersDelete", [w] { mnuRemindersDelete_Click(*w); });
    on("mnuReminderEdit", [w] { mnuReminderEdit_Click(*w); });
    on("mnuPicLock", [w] { mnuPicLock_Click(*w); });
    on("mnuPicOriginalSize", [w] { mnuPicOriginalSize_Click(*w); });
    on("mnuPicFroward", [w] { mnuPicFroward_Click(*w); });
    on("mnuPicSendToBack", [w] { mnuPicSendToBack_Click(*w); });
    on("mnuPicReplace", [w] { mnuPicReplace_Click(*w); });
    on("mnuPicDelete", [w] { mnuPicDelete_Click(*w); });
    // The heartbeat rings due reminders while any exists.
    ws.onAlarmCheck = [w] { CheckReminders(*w); };
    ws.PicLockToolbar(0).ToolTipText = QStringLiteral("Click to Unlock the workspace for editing");
    ws.PicUnLockToolbar(0).ToolTipText = QStringLiteral("Click to Lock the workspace for editing");
}

} // namespace pd
