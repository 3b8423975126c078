#include "view/DropInput.h"

#include "app/workspace/Workspace.h"
#include "platform/qt/ShellExchange.h"
#include "shell/DragDrop.h"
#include "view/ElementInput.h"
#include "view/ElementWidget.h"
#include "view/MainView.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <QTimer>
#include <QUrl>

#include <memory>

namespace pd {

namespace {

// The key states as the handlers take them: 1 Shift, 2 Ctrl, 4 Alt.
int ShiftOf(Qt::KeyboardModifiers m) {
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
           (m & Qt::AltModifier ? 4 : 0);
}

// Answers the drag with the handler's effect. The workspace moves a file itself (copy, then trash), so a
// move is answered to the source as a copy: the source must not delete the file as well. A container that
// refuses still takes the event, with no action, so that it does not go on to the background beneath.
void Answer(QDropEvent& ev, int effect, bool keep) {
    if (effect == 0) {
        if (keep) {
            ev.setDropAction(Qt::IgnoreAction);
            ev.accept();
        } else {
            ev.ignore();
        }
        return;
    }
    ev.setDropAction(Qt::CopyAction);
    ev.accept();
}

} // namespace

DropData DropDataOf(const QMimeData* data) {
    DropData d;
    if (!data) return d;
    d.files = LocalFilesOf(data);
    if (!d.files.isEmpty()) return d;
    if (data->hasUrls() && !data->urls().isEmpty()) {
        d.hasText = true;
        d.text = data->urls().first().toString();
    } else if (data->hasText()) {
        d.hasText = true;
        d.text = data->text();
    }
    return d;
}

void WireDropInput(InputContext& ctx, ElementWidget& w) {
    const QString& name = w.element().Name();
    if (name == QLatin1String("txtNote") || name == QLatin1String("groupName")) {
        // The editors inside a container do not take drops themselves: a drop on a note goes to the
        // container, which adds the text to the note after a blank line.
        w.setAcceptDrops(false);
        for (QWidget* child : w.findChildren<QWidget*>())
            child->setAcceptDrops(false);
        return;
    }
    const bool back = name == QLatin1String("picBack");
    if (!back && name != QLatin1String("grpBorder")) return;
    w.setAcceptDrops(true);
    const int i = w.element().Index();
    Workspace& ws = ctx.ws;
    // What the drag carried as last read while it moved: at the drop some sources no longer hand out the
    // data (the X selection's time stamp of a drop made with synthetic input), and then this is it.
    auto carried = std::make_shared<DropData>();
    w.onDrag = [&ws, back, i, carried](ElementWidget& widget, QEvent& event) {
        if (event.type() == QEvent::DragLeave) {
            OLEDragLeave(ws);
            return;
        }
        auto& ev = static_cast<QDropEvent&>(event);
        DropData data = DropDataOf(ev.mimeData());
        const int shift = ShiftOf(ev.modifiers());
        if (event.type() == QEvent::DragEnter) *carried = data;
        if (event.type() == QEvent::DragMove && (data.hasFiles() || !data.text.isEmpty())) *carried = data;
        if (event.type() == QEvent::Drop && !data.hasFiles() && data.text.isEmpty()) data = *carried;
        if (event.type() == QEvent::DragEnter || event.type() == QEvent::DragMove) {
            Answer(ev,
                   back ? picBack_OLEDragOver(ws, data, shift) : grpBorder_OLEDragOver(ws, i, data, shift),
                   !back);
            return;
        }
        if (event.type() != QEvent::Drop) return;
        const int effect =
            back ? picBack_OLEDragOver(ws, data, shift) : grpBorder_OLEDragOver(ws, i, data, shift);
        Answer(ev, effect, !back);
        if (effect == 0) {
            OLEDragLeave(ws);
            return;
        }
        const float X = static_cast<float>(ev.position().x()) * ws.TwipsPerPixelX();
        const float Y = static_cast<float>(ev.position().y()) * ws.TwipsPerPixelY();
        // The drop is answered first, so that the other program is free at once; a copy with its progress
        // window runs after.
        QPointer<ElementWidget> guard(&widget);
        QTimer::singleShot(0, &widget, [&ws, back, i, data, shift, X, Y, guard] {
            if (!guard) return;
            if (back)
                picBack_OLEDragDrop(ws, data, shift, X, Y);
            else
                grpBorder_OLEDragDrop(ws, i, data, shift, X, Y);
        });
    };
}

bool CarriedOver(InputContext& ctx, const QPoint& global) {
    Workspace& ws = ctx.ws;
    const Element* source = ws.DragSource;
    if (!source) return false;
    QWidget* sourceWidget = static_cast<QWidget*>(source->viewHandle);
    for (QWidget* p = ctx.main.childAt(ctx.main.mapFromGlobal(global)); p; p = p->parentWidget()) {
        if (sourceWidget && (p == sourceWidget || sourceWidget->isAncestorOf(p))) continue;
        auto* ew = qobject_cast<ElementWidget*>(p);
        if (!ew) continue;
        const QString& name = ew->element().Name();
        if (name == QLatin1String("grpBorder")) {
            grpBorder_DragOver(ws, ew->element().Index());
            return false;
        }
        if (name == QLatin1String("picBack")) return picBack_DragOver(ws);
    }
    return false;
}

} // namespace pd
