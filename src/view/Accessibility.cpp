#include "view/Accessibility.h"

#include "app/elements/Element.h"
#include "app/workspace/Workspace.h"
#include "view/ElementWidget.h"
#include "view/RichLabel.h"
#include "view/ToolbarWindow.h"
#include "window/FloatingToolbar.h"

#include <QAccessibleWidget>
#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QTextDocumentFragment>
#include <QWindow>

#include <vector>

namespace pd {

namespace {

const Workspace* g_workspace = nullptr;

// Picture buttons of a container whose tooltip may be empty: the name says what a click does.
QString FallbackButtonName(const QString& family) {
    static const std::pair<const char*, const char*> kNames[] = {
        {"chkFold", "Fold"},         {"chkUnfold", "Unfold"},
        {"picShrink", "Shrink"},     {"picPin", "Pin"},
        {"picPinNote", "Pin note"},  {"PicDock", "Dock"},
        {"PicLinkColor", "Color"},   {"PicRSSRefreshALL", "Refresh all feeds"},
        {"ImgLinkGroup", "Tags"},    {"ImgLock", "Locked"},
        {"lblRSSRefresh", "Refresh"},
    };
    for (const auto& [f, name] : kNames)
        if (family == QLatin1String(f)) return QString::fromLatin1(name);
    return {};
}

bool Is(const Element& e, const char* family) { return e.Name() == QLatin1String(family); }

// A caption of one sign (an arrow, a cross) on a label that takes clicks: a button, named by its tip.
bool SignCaption(const Element& e) {
    const QString& c = e.Caption.get();
    return c.size() == 1 && !c.at(0).isLetterOrNumber() && (!e.ToolTipText.get().isEmpty() || Is(e, "lblRSSRefresh"));
}

// The container title of member `i` of a container family, or empty.
QString ContainerTitle(int i) {
    if (!g_workspace || !g_workspace->lblName.exists(i)) return {};
    return const_cast<Workspace*>(g_workspace)->lblName(i).Caption.get();
}

// A left click at `local` in the widget (its middle by default), as the mouse gives it: the press action
// of a clickable element, label or toolbar icon.
void Click(QWidget* w, QPointF local = QPointF(-1, -1)) {
    if (local.x() < 0) local = QPointF(w->width() / 2.0, w->height() / 2.0);
    const QPointF global = w->mapToGlobal(local);
    QMouseEvent press(QEvent::MouseButtonPress, local, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(w, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, local, global, Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(w, &release);
}

// A widget interface whose role, name and description are worked out when asked, so that they follow
// the element; with the press action for clickable ones.
class ClickableAccessible : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    QStringList actionNames() const override {
        QStringList names = QAccessibleWidget::actionNames();
        if (clickable()) names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& action) override {
        if (action == pressAction() && clickable() && widget()->isEnabled()) Click(widget());
        else QAccessibleWidget::doAction(action);
    }

  protected:
    virtual bool clickable() const { return false; }
};

class ElementAccessible : public ClickableAccessible {
  public:
    explicit ElementAccessible(ElementWidget* w) : ClickableAccessible(w) {}

    Element& element() const { return static_cast<ElementWidget*>(widget())->element(); }

    QAccessible::Role role() const override {
        const Element& e = element();
        if (Is(e, "Link")) return QAccessible::Link;
        if (Is(e, "lblName")) return QAccessible::Heading;
        if (Is(e, "Group") || Is(e, "grpBorder")) return QAccessible::Grouping;
        if (Is(e, "txtNote")) return QAccessible::Note;
        if (Is(e, "picBack") || Is(e, "imgBack") || Is(e, "groupName")) return QAccessible::Pane;
        if (Is(e, "LinkLine") || Is(e, "ShapeMove") || Is(e, "ShapeMovingIcon") || Is(e, "ShapeIconFiller"))
            return QAccessible::Graphic;
        if (SignCaption(e)) return QAccessible::Button;
        if (!e.Caption.get().isEmpty()) return QAccessible::StaticText;
        if (!buttonName().isEmpty()) return QAccessible::Button;
        return QAccessible::Graphic;
    }

    QString text(QAccessible::Text t) const override {
        const Element& e = element();
        switch (t) {
        case QAccessible::Name: {
            if (Is(e, "Group") || Is(e, "grpBorder")) return ContainerTitle(e.Index());
            if (Is(e, "txtNote")) return QStringLiteral("Note");
            if (Is(e, "groupName")) return QStringLiteral("Container name");
            if (Is(e, "ShrinkIcon")) {
                const QString title = ContainerTitle(e.Index());
                return title.isEmpty() ? QStringLiteral("Expand") : QStringLiteral("Expand ") + title;
            }
            if (!e.Caption.get().isEmpty() && !SignCaption(e)) return e.Caption.get();
            return buttonName();
        }
        case QAccessible::Description:
            if (Is(e, "Link")) return LinkTarget(e.Index());
            // A label or button whose tooltip says more than its name.
            if (!e.Caption.get().isEmpty() && !e.ToolTipText.get().isEmpty())
                return AccessibleTipName(e.ToolTipText.get());
            return {};
        case QAccessible::Value:
            return {};
        default:
            return ClickableAccessible::text(t);
        }
    }

    QAccessible::State state() const override {
        QAccessible::State s = ClickableAccessible::state();
        const Element& e = element();
        if (Is(e, "Link")) s.linked = true;
        if (Is(e, "Link") && g_workspace && g_workspace->SelectedLink == e.Index() && e.BorderStyle == 1)
            s.selected = true;
        return s;
    }

  protected:
    bool clickable() const override {
        const QAccessible::Role r = role();
        return r == QAccessible::Link || r == QAccessible::Button;
    }

  private:
    QString buttonName() const {
        const Element& e = element();
        if (!e.ToolTipText.get().isEmpty()) return AccessibleTipName(e.ToolTipText.get());
        if (Is(e, "PicIcon") && g_workspace) {
            // A shortcut's icon is named after its shortcut's label.
            for (int k = 0; k < static_cast<int>(g_workspace->Links.size()); ++k)
                if (g_workspace->Links[static_cast<size_t>(k)].IconIndex == e.Index() &&
                    g_workspace->Link.exists(k))
                    return const_cast<Workspace*>(g_workspace)->Link(k).Caption.get();
        }
        return FallbackButtonName(e.Name());
    }

    static QString LinkTarget(int k) {
        if (!g_workspace || k < 0 || k >= static_cast<int>(g_workspace->Links.size())) return {};
        const LinkRecord& r = g_workspace->Links[static_cast<size_t>(k)];
        if (r.Command == 1) return r.LinkParam;
        return r.LinkParam.isEmpty() ? r.LinkPath : r.LinkPath + QLatin1Char(' ') + r.LinkParam;
    }
};

// A rich label: a headline row is a link named by its headline; any other shows text.
class RichLabelAccessible : public ClickableAccessible {
  public:
    explicit RichLabelAccessible(RichLabel* w) : ClickableAccessible(w) {}
    RichLabel* label() const { return static_cast<RichLabel*>(widget()); }
    bool isRow() const { return label()->property("row").isValid(); }

    QAccessible::Role role() const override { return isRow() ? QAccessible::Link : QAccessible::StaticText; }
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name) {
            const QString own = ClickableAccessible::text(t);
            return own.isEmpty() ? label()->Text() : own;
        }
        if (t == QAccessible::Description) return AccessibleTipName(label()->toolTip());
        return ClickableAccessible::text(t);
    }
    QAccessible::State state() const override {
        QAccessible::State s = ClickableAccessible::state();
        if (isRow()) s.linked = true;
        return s;
    }

  protected:
    bool clickable() const override { return isRow(); }
};

// One icon of the floating toolbar, which the toolbar paints itself: a push button named by its tip
// ("New Note"), with its key as the key of the press action ("Ctrl+N"); the close mark is the last.
class ToolbarIconAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    ToolbarIconAccessible(ToolbarWindow* bar, int n) : bar_(bar), n_(n) {}

    bool isValid() const override { return !bar_.isNull(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return bar_ ? bar_->windowHandle() : nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(bar_.data()); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* focusChild() const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::Button; }
    QAccessible::State state() const override {
        QAccessible::State s;
        if (!bar_ || !bar_->isVisible()) s.invisible = true;
        return s;
    }
    QString text(QAccessible::Text t) const override {
        if (isClose()) return t == QAccessible::Name ? QStringLiteral("Close") : QString();
        const QString tip = ToolbarTipText(n_);
        const int bar = static_cast<int>(tip.indexOf(QLatin1String(" | ")));
        if (t == QAccessible::Name) return bar < 0 ? tip : tip.left(bar);
        if (t == QAccessible::Accelerator) return bar < 0 ? QString() : tip.mid(bar + 3);
        return {};
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        const QRect local = cell();
        return bar_ && local.isValid() ? QRect(bar_->mapToGlobal(local.topLeft()), local.size()) : QRect();
    }
    void* interface_cast(QAccessible::InterfaceType t) override {
        return t == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }

    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        const QRect c = cell();
        if (action == pressAction() && bar_ && c.isValid()) Click(bar_.data(), QRectF(c).center());
    }
    QStringList keyBindingsForAction(const QString& action) const override {
        const QString key = text(QAccessible::Accelerator);
        return action == pressAction() && !key.isEmpty() ? QStringList{key} : QStringList();
    }

  private:
    bool isClose() const { return n_ >= kToolbarIcons; }
    // The cell of the icon (or the close mark) in the toolbar's pixels, found by asking the toolbar.
    QRect cell() const {
        if (!bar_) return {};
        QRect r;
        for (int y = 0; y < bar_->height(); ++y)
            for (int x = 0; x < bar_->width(); ++x) {
                const QPoint p(x, y);
                if (isClose() ? bar_->onCloseMark(p) : bar_->iconAt(p) == n_) r |= QRect(p, QSize(1, 1));
            }
        return r;
    }
    QPointer<ToolbarWindow> bar_;
    int n_;
};

// The floating toolbar: a tool bar whose children are its icons and its close mark.
class ToolbarAccessible : public QAccessibleWidget {
  public:
    explicit ToolbarAccessible(ToolbarWindow* w) : QAccessibleWidget(w, QAccessible::ToolBar) {
        for (int n = 0; n <= kToolbarIcons; ++n)
            ids_.push_back(QAccessible::registerAccessibleInterface(new ToolbarIconAccessible(w, n)));
    }
    ~ToolbarAccessible() override {
        for (QAccessible::Id id : ids_) QAccessible::deleteAccessibleInterface(id);
    }
    int childCount() const override { return static_cast<int>(ids_.size()); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) return nullptr;
        return QAccessible::accessibleInterface(ids_[static_cast<size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (size_t i = 0; i < ids_.size(); ++i)
            if (QAccessible::accessibleInterface(ids_[i]) == child) return static_cast<int>(i);
        return -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < childCount(); ++i)
            if (QAccessibleInterface* c = child(i); c && c->rect().contains(x, y)) return c;
        return nullptr;
    }
    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name) return QStringLiteral("Toolbar");
        return QAccessibleWidget::text(t);
    }

  private:
    std::vector<QAccessible::Id> ids_;
};

bool TakesClicks(const QWidget* w) {
    return w->testAttribute(Qt::WA_SetCursor) && w->cursor().shape() == Qt::PointingHandCursor;
}

// A label. One that takes clicks (it shows the hand pointer) is a push button named by its text, or by
// its tooltip when it shows a picture or a single sign; any other shows its text or its picture. The role
// is worked out when asked, as the pointer is set after the label is made.
class LabelAccessible : public ClickableAccessible {
  public:
    explicit LabelAccessible(QLabel* w) : ClickableAccessible(w, QAccessible::StaticText) {}
    QLabel* label() const { return static_cast<QLabel*>(widget()); }

    QAccessible::Role role() const override {
        if (TakesClicks(widget())) return QAccessible::Button;
        if (shownText().isEmpty() && !label()->pixmap().isNull()) return QAccessible::Graphic;
        return QAccessible::StaticText;
    }
    QString text(QAccessible::Text t) const override {
        const QString own = widget()->accessibleName();
        const QString shown = shownText();
        const QString tip = AccessibleTipName(widget()->toolTip());
        if (t == QAccessible::Name) {
            if (!own.isEmpty()) return own;
            if (TakesClicks(widget()) && shown.size() < 2 && !tip.isEmpty()) return tip;
            return shown;
        }
        if (t == QAccessible::Description) {
            const QString own_desc = widget()->accessibleDescription();
            if (!own_desc.isEmpty()) return own_desc;
            return tip == text(QAccessible::Name) ? QString() : tip;
        }
        return ClickableAccessible::text(t);
    }

  protected:
    bool clickable() const override { return TakesClicks(widget()); }

  private:
    QString shownText() const {
        QString s = label()->text();
        if (Qt::mightBeRichText(s)) s = QTextDocumentFragment::fromHtml(s).toPlainText();
        // A label of a field shows its mnemonic with an ampersand.
        if (label()->buddy()) s.remove(QLatin1Char('&'));
        return s.simplified();
    }
};

// A control that a label beside it names: a text field, a list, a box, or a button that shows no text.
bool IsField(const QWidget* w) {
    if (auto* line = qobject_cast<const QLineEdit*>(w)) {
        const QWidget* p = line->parentWidget();
        return !(qobject_cast<const QComboBox*>(p) || qobject_cast<const QAbstractSpinBox*>(p));
    }
    if (auto* b = qobject_cast<const QAbstractButton*>(w)) return b->text().isEmpty() && b->icon().isNull();
    return qobject_cast<const QComboBox*>(w) || qobject_cast<const QAbstractSpinBox*>(w) ||
           qobject_cast<const QAbstractScrollArea*>(w);
}

// Gives each unnamed field of a window the text of the label that stands before it (left of it on its
// row, or just above it): text fields, lists and boxes take the label as their buddy, so that their name
// follows the label's text; a button without text takes the label's text as its name.
void LabelFields(QWidget* window) {
    const QList<QLabel*> labels = window->findChildren<QLabel*>();
    QList<QWidget*> named;
    for (QLabel* l : labels)
        if (l->buddy()) named.push_back(l->buddy());
    const QList<QWidget*> all = window->findChildren<QWidget*>();
    for (QLabel* label : labels) {
        if (label->buddy() || TakesClicks(label) || !label->isVisibleTo(window)) continue;
        const QString text = label->text().trimmed();
        if (text.isEmpty() || Qt::mightBeRichText(text)) continue;
        const QRect lr(label->mapTo(window, QPoint(0, 0)), label->size());
        QWidget* best = nullptr;
        int bestDistance = 0;
        for (QWidget* field : all) {
            if (!IsField(field) || !field->isVisibleTo(window) || named.contains(field) ||
                !field->accessibleName().isEmpty())
                continue;
            const QRect fr(field->mapTo(window, QPoint(0, 0)), field->size());
            int distance = -1;
            if (fr.left() >= lr.center().x() && fr.top() <= lr.center().y() && fr.bottom() >= lr.center().y())
                distance = fr.left() - lr.right();
            else if (fr.top() >= lr.center().y() && fr.left() <= lr.right() && fr.right() >= lr.left())
                distance = 2 * (fr.top() - lr.bottom()) + 8;
            if (distance < 0 || distance > 160) continue;
            if (!best || distance < bestDistance) {
                best = field;
                bestDistance = distance;
            }
        }
        if (!best) continue;
        if (qobject_cast<QAbstractButton*>(best)) {
            QString name = text;
            name.remove(QLatin1Char('&'));
            if (name.endsWith(QLatin1Char(':'))) name.chop(1);
            best->setAccessibleName(name);
        } else {
            label->setBuddy(best);
        }
        named.push_back(best);
    }
}

// Names the fields of every window as it is first shown.
class FieldLabeler : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* watched, QEvent* ev) override {
        if (ev->type() == QEvent::Show && watched->isWidgetType()) {
            auto* w = static_cast<QWidget*>(watched);
            if (w->isWindow() && !w->property("pdFieldsLabelled").toBool()) {
                w->setProperty("pdFieldsLabelled", true);
                LabelFields(w);
            }
        }
        return false;
    }
};

QAccessibleInterface* Factory(const QString& className, QObject* object) {
    if (!object || !object->isWidgetType()) return nullptr;
    if (className == QLatin1String("pd::ElementWidget"))
        if (auto* w = qobject_cast<ElementWidget*>(object)) return new ElementAccessible(w);
    if (className == QLatin1String("pd::RichLabel"))
        if (auto* w = qobject_cast<RichLabel*>(object)) return new RichLabelAccessible(w);
    if (className == QLatin1String("pd::ToolbarWindow"))
        if (auto* w = qobject_cast<ToolbarWindow*>(object)) return new ToolbarAccessible(w);
    if (className == QLatin1String("QLabel"))
        if (auto* w = qobject_cast<QLabel*>(object)) return new LabelAccessible(w);
    return nullptr;
}

} // namespace

void InstallAccessibility() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    QAccessible::installFactory(&Factory);
    if (QCoreApplication* app = QCoreApplication::instance()) app->installEventFilter(new FieldLabeler(app));
}

void SetAccessibleWorkspace(const Workspace* ws) { g_workspace = ws; }
const Workspace* AccessibleWorkspace() { return g_workspace; }

void NotifyAccessibleNameChanged(QWidget* w) {
    if (!w) return;
    QAccessibleEvent name(w, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&name);
    QAccessibleEvent description(w, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&description);
}

QString AccessibleTipName(const QString& tip) {
    QString s = tip;
    s.replace(QLatin1String("\r\n"), QLatin1String(" "));
    s.replace(QLatin1Char('\n'), QLatin1Char(' '));
    s.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return s.simplified();
}

} // namespace pd
