#include "view/DeskInput.h"
#include "view/MouseArgs.h"

#include "app/workspace/Workspace.h"
#include "desk/DeskState.h"
#include "desk/Lock.h"
#include "desk/Notes.h"
#include "desk/PictureMouse.h"
#include "view/ElementInput.h"
#include "view/ElementWidget.h"
#include "view/MenuView.h"
#include "window/Docking.h"

#include <QEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>

#include <cmath>

namespace pd {

namespace {

float Tx(Workspace& ws, const QMouseEvent& ev) {
    return static_cast<float>(ev.position().x()) * ws.TwipsPerPixelX();
}
float Ty(Workspace& ws, const QMouseEvent& ev) {
    return static_cast<float>(ev.position().y()) * ws.TwipsPerPixelY();
}

void PopupPictureMenu(InputContext& ctx, const QMouseEvent& ev) {
    ctx.ws.menus["mnuDeleteContainer"].setVisible(false);
    QMenu* m = ctx.menus.menu(QStringLiteral("mnuPicture"));
    if (!m) return;
    m->setDefaultAction(ctx.menus.action(PictureMenuDefault(ctx.ws)));
    m->popup(ev.globalPosition().toPoint());
}

// Paints a reminder's icon with its date over its time, centred and bold; other locked faces paint as
// every element does.
class ReminderFacePainter : public QObject {
  public:
    ReminderFacePainter(Workspace& ws, ElementWidget& w) : QObject(&w), ws_(ws), w_(w) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* ev) override {
        if (watched != &w_ || ev->type() != QEvent::Paint) return false;
        const int j = w_.element().Index();
        DeskState& d = Desk(ws_);
        auto face = d.Faces.find(j);
        if (face == d.Faces.end()) return false;
        const Element& e = w_.element();
        QPainter p(&w_);
        if (picture_.file() != e.Picture.get()) picture_.setFile(e.Picture.get());
        // The icon at the screen's device pixels: its twin of twice the pixels on a dense screen.
        if (const QPixmap& shown = picture_.stretched(w_.size(), w_.devicePixelRatioF()); !shown.isNull())
            p.drawPixmap(0, 0, shown);
        QFont f(e.FontName.get());
        f.setPointSizeF(ShownFontSize(e.FontSize));
        f.setBold(true);
        p.setFont(f);
        p.setPen(ToQColor(e.ForeColor));
        const QFontMetrics fm(f);
        const float ty = ws_.TwipsPerPixelY();
        auto line = [&](const QString& text, float topTwips) {
            const int x = (w_.width() - fm.horizontalAdvance(text)) / 2;
            p.drawText(x, static_cast<int>(std::lround(topTwips / ty)) + fm.ascent(), text);
        };
        line(face->second.Date, 20);
        line(face->second.Time, 250);
        return true;
    }

  private:
    Workspace& ws_;
    ElementWidget& w_;
    ScreenPicture picture_;
};

// The note's editor: its focus, a press and a move in its text, and the keys that are the note's.
class NoteWatcher : public QObject {
  public:
    NoteWatcher(Workspace& ws, int i, QObject* parent) : QObject(parent), ws_(ws), i_(i) {}

  protected:
    bool eventFilter(QObject*, QEvent* ev) override {
        switch (ev->type()) {
        case QEvent::FocusIn:
            txtNote_GotFocus(ws_, i_);
            break;
        case QEvent::MouseButtonPress:
            txtNote_MouseDown(ws_, i_);
            break;
        case QEvent::MouseMove:
            txtNote_MouseMove(ws_, i_);
            break;
        case QEvent::ShortcutOverride: {
            // While a note is edited, the menus' Ctrl and Alt keys are the note's (Ctrl+A selects its text).
            auto* key = static_cast<QKeyEvent*>(ev);
            if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) ev->accept();
            break;
        }
        default:
            break;
        }
        return false;
    }

  private:
    Workspace& ws_;
    int i_;
};

} // namespace

bool WireDeskInput(InputContext& ctx, ElementWidget& w) {
    Workspace& ws = ctx.ws;
    const QString& name = w.element().Name();
    const int i = w.element().Index();
    if (name == QLatin1String("imgPicture")) {
        w.onPress = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            const QString menu =
                imgPicture_MouseDown(ctx.ws, Button(ev), Shift(ev), i, Tx(ctx.ws, ev), Ty(ctx.ws, ev));
            if (!menu.isEmpty()) PopupPictureMenu(ctx, ev);
        };
        w.onMove = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            imgPicture_MouseMove(ws, Held(ev), Shift(ev), i, Tx(ws, ev), Ty(ws, ev));
        };
        w.onRelease = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            imgPicture_MouseUp(ws, Button(ev), Shift(ev), i);
        };
        w.onDoubleClick = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() == Qt::LeftButton) imgPicture_DblClick(ws, i);
        };
        return true;
    }
    if (name == QLatin1String("picTemp")) {
        w.installEventFilter(new ReminderFacePainter(ws, w));
        w.onPress = [&ctx, i](ElementWidget&, QMouseEvent& ev) {
            const QString menu =
                picTemp_MouseDown(ctx.ws, Button(ev), Shift(ev), i, Tx(ctx.ws, ev), Ty(ctx.ws, ev));
            if (!menu.isEmpty()) PopupPictureMenu(ctx, ev);
        };
        w.onMove = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            // With no button down it is a move over the window as well.
            if (Held(ev) == 0) DockMouseMove(ws);
            picTemp_MouseMove(ws, Held(ev), Shift(ev), i, Tx(ws, ev), Ty(ws, ev));
        };
        w.onRelease = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            picTemp_MouseUp(ws, Button(ev), Shift(ev), i);
        };
        w.onDoubleClick = [&ws, i](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() == Qt::LeftButton) picTemp_DblClick(ws, i);
        };
        return true;
    }
    if (name == QLatin1String("txtNote")) {
        if (auto* editor = w.findChild<QPlainTextEdit*>()) {
            auto* watcher = new NoteWatcher(ws, i, &w);
            editor->installEventFilter(watcher);
            editor->viewport()->installEventFilter(watcher);
        }
        // A note is saved when it loses the focus, changed or not.
        w.onFocusLost = [&ws, i](ElementWidget&) { txtNote_LostFocus(ws, i); };
        return true;
    }
    if (name == QLatin1String("ImgLock")) {
        w.onPress = [&ws](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() == Qt::LeftButton) ImgLock_Click(ws);
        };
        return true;
    }
    if (name == QLatin1String("PicLockToolbar")) {
        w.onPress = [&ws](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() == Qt::LeftButton) PicLockToolbar_Click(ws);
        };
        return true;
    }
    if (name == QLatin1String("PicUnLockToolbar")) {
        w.onPress = [&ws](ElementWidget&, QMouseEvent& ev) {
            if (ev.button() == Qt::LeftButton) PicUnLockToolbar_Click(ws);
        };
        return true;
    }
    return false;
}

void InstallDeskView(Workspace& ws) {
    DeskState& d = Desk(ws);
    d.onSelectAllInNote = [](Element& e) {
        auto* w = qobject_cast<QWidget*>(static_cast<QWidget*>(e.viewHandle));
        if (!w) return;
        if (auto* editor = w->findChild<QPlainTextEdit*>()) editor->selectAll();
    };
    d.onFaceChanged = [&ws](int j) {
        if (!ws.picTemp.exists(j)) return;
        if (auto* w = static_cast<QWidget*>(ws.picTemp(j).viewHandle)) w->update();
    };
}

} // namespace pd
