#include "view/ReminderWindows.h"

#include "app/workspace/Workspace.h"
#include "desk/DeskState.h"
#include "desk/ReminderForm.h"
#include "desk/Reminders.h"
#include "desk/ShowReminder.h"
#include "platform/qt/HiDpiPictures.h"
#include "view/ElementWidget.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cmath>

#include <iterator>

namespace pd {

namespace {

QComboBox* Combo(const char* name, QWidget* parent) {
    auto* c = new QComboBox(parent);
    c->setObjectName(QString::fromLatin1(name));
    // A year or day may be typed that the list does not hold.
    c->setEditable(true);
    c->setInsertPolicy(QComboBox::NoInsert);
    return c;
}

void SetList(QComboBox* c, const QStringList& items, const QString& text) {
    QStringList now;
    for (int i = 0; i < c->count(); ++i)
        now << c->itemText(i);
    if (now != items) {
        c->clear();
        c->addItems(items);
    }
    const int at = items.indexOf(text);
    if (at >= 0) c->setCurrentIndex(at);
    c->setEditText(text);
}

void Colour(QWidget* w, int32_t back, int32_t fore) {
    QPalette pal = w->palette();
    pal.setColor(QPalette::Base, ToQColor(back));
    pal.setColor(QPalette::Window, ToQColor(back));
    pal.setColor(QPalette::Text, ToQColor(fore));
    pal.setColor(QPalette::WindowText, ToQColor(fore));
    w->setPalette(pal);
}

QPushButton* Button(const char* name, const QString& caption, QWidget* parent) {
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(QString::fromLatin1(name));
    return b;
}

} // namespace

// --- frmReminder ---

ReminderDialog::ReminderDialog(ReminderForm& form, const QString& programDirectory, QWidget* parent)
    : QDialog(parent), form_(form) {
    setObjectName(QStringLiteral("frmReminder"));
    setModal(true);
    setWindowFlag(Qt::WindowStaysOnTopHint, true);
    auto* grid = new QGridLayout(this);
    month_ = Combo("cboMonth", this);
    day_ = Combo("cboDay", this);
    year_ = Combo("cboYear", this);
    hour_ = Combo("cboHour", this);
    minute_ = Combo("cboMinute", this);
    ampm_ = Combo("cboAMPM", this);
    auto* date = new QHBoxLayout;
    date->addWidget(month_);
    date->addWidget(day_);
    date->addWidget(year_);
    grid->addLayout(date, 0, 0, 1, 3);
    auto* time = new QHBoxLayout;
    time->addWidget(hour_);
    time->addWidget(minute_);
    time->addWidget(ampm_);
    auto* minus = Button("Command1", QStringLiteral("-10"), this);
    minus->setToolTip(QStringLiteral("Subtract 10 Minutes"));
    auto* plus = Button("cmdPlusTen", QStringLiteral("+10"), this);
    plus->setToolTip(QStringLiteral("Add 10 Minutes"));
    time->addWidget(minus);
    time->addWidget(plus);
    grid->addLayout(time, 1, 0, 1, 3);
    text_ = new QPlainTextEdit(this);
    text_->setObjectName(QStringLiteral("txtReminder"));
    grid->addWidget(text_, 2, 0, 1, 3);
    auto* colors = new QHBoxLayout;
    for (int n = 0; n < kReminderColors; ++n) {
        auto* r = new QRadioButton(this);
        r->setObjectName(QStringLiteral("OptAlarmGif_%1").arg(n));
        r->setToolTip(QStringLiteral("Reminder Color"));
        // The clock and its twin of twice the pixels, for dense screens.
        r->setIcon(LoadIcon(QDir(programDirectory).filePath(ReminderIconFile(n))));
        r->setIconSize(QSize(24, 24));
        colors->addWidget(r);
        colors_[n] = r;
        connect(r, &QRadioButton::toggled, this, [this, n](bool on) {
            if (!on || syncing_) return;
            readBack();
            form_.ChooseColor(n);
        });
    }
    colors->addStretch();
    auto* ok = Button("OKButton", QStringLiteral("&Done"), this);
    auto* cancel = Button("CancelButton", QStringLiteral("&Clear"), this);
    ok->setDefault(true);
    colors->addWidget(ok);
    colors->addWidget(cancel);
    grid->addLayout(colors, 3, 0, 1, 3);

    connect(ok, &QPushButton::clicked, this, [this] { run(&ReminderForm::OKButton_Click); });
    connect(cancel, &QPushButton::clicked, this, [this] { run(&ReminderForm::CancelButton_Click); });
    connect(plus, &QPushButton::clicked, this, [this] { run(&ReminderForm::cmdPlusTen_Click); });
    connect(minus, &QPushButton::clicked, this, [this] { run(&ReminderForm::Command1_Click); });
    // The days follow a change of month or year.
    for (QComboBox* c : {month_, year_}) {
        connect(c, &QComboBox::activated, this, [this] {
            if (syncing_) return;
            readBack();
            form_.DaysInMonth();
        });
        // A month or year typed in (the focus leaves the field, or Enter) refreshes the list of days
        // but leaves the day alone; see RefreshDayList. Qt would otherwise treat typed text that
        // matches an item as a pick from the list, which moves the day; that connection is dropped.
        disconnect(c->lineEdit(), &QLineEdit::editingFinished, c, nullptr);
        connect(c->lineEdit(), &QLineEdit::editingFinished, this, [this] {
            if (syncing_) return;
            readBack();
            form_.RefreshDayList();
        });
    }
    form_.onChanged = [this] { sync(); };
    sync();
    // The keyboard starts at the first field, the month, and goes in reading order: the date, the time,
    // the note (where Tab moves on rather than typing a tab), the colours, Done and Clear. The two
    // ten-minute buttons are for the mouse: a typed time needs no steps, so Tab goes from AM/PM
    // straight to the note.
    text_->setTabChangesFocus(true);
    minus->setFocusPolicy(Qt::ClickFocus);
    plus->setFocusPolicy(Qt::ClickFocus);
    QWidget* const order[] = {ampm_, text_, colors_[0]};
    for (size_t i = 1; i < std::size(order); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
    for (int n = 1; n < kReminderColors; ++n) QWidget::setTabOrder(colors_[n - 1], colors_[n]);
    QWidget::setTabOrder(colors_[kReminderColors - 1], ok);
    QWidget::setTabOrder(ok, cancel);
    month_->setFocus();
}

void ReminderDialog::run(void (ReminderForm::*handler)()) {
    readBack();
    (form_.*handler)();
}

void ReminderDialog::readBack() {
    form_.cboMonth = month_->currentText();
    form_.cboDay = day_->currentText();
    form_.cboYear = year_->currentText();
    form_.cboHour = hour_->currentText();
    form_.cboMinute = minute_->currentText();
    form_.cboAMPM = ampm_->currentText();
    form_.txtReminder = text_->toPlainText();
}

void ReminderDialog::sync() {
    syncing_ = true;
    setWindowTitle(form_.Caption);
    SetList(month_, form_.MonthList, form_.cboMonth);
    SetList(day_, form_.DayList, form_.cboDay);
    SetList(year_, form_.YearList, form_.cboYear);
    SetList(hour_, form_.HourList, form_.cboHour);
    SetList(minute_, form_.MinuteList, form_.cboMinute);
    SetList(ampm_, form_.AMPMList, form_.cboAMPM);
    if (text_->toPlainText() != form_.txtReminder) text_->setPlainText(form_.txtReminder);
    Colour(text_, form_.TextBackColor, form_.TextForeColor);
    for (int n = 0; n < kReminderColors; ++n)
        colors_[n]->setChecked(n == form_.OptAlarmGif);
    syncing_ = false;
    if (!form_.Loaded && isVisible()) done(QDialog::Accepted);
}

void ReminderDialog::closeEvent(QCloseEvent* ev) {
    // The window's close box leaves without a reminder.
    if (form_.Loaded) form_.Unload();
    QDialog::closeEvent(ev);
}

void ReminderDialog::reject() {
    // Esc: as the close box.
    if (form_.Loaded) form_.Unload();
    QDialog::reject();
}

// --- frmShowReminder ---

AlarmWindow::AlarmWindow(std::shared_ptr<ShowReminderForm> form, float twipsX, float twipsY)
    : QWidget(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint), form_(std::move(form)), tx_(twipsX),
      ty_(twipsY) {
    setObjectName(form_->Name);
    setAttribute(Qt::WA_DeleteOnClose, true);
    setAutoFillBackground(true);
    auto* box = new QVBoxLayout(this);
    title_ = new QLabel(this);
    title_->setObjectName(QStringLiteral("lblTitle"));
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    box->addWidget(title_);
    text_ = new QPlainTextEdit(this);
    text_->setObjectName(QStringLiteral("txtReminder"));
    box->addWidget(text_);
    curPic_ = new QLabel(this);
    curPic_->setObjectName(QStringLiteral("lblCurPic"));
    curPic_->setVisible(false);
    auto* row = new QHBoxLayout;
    auto* open = Button("cmdEdit", QStringLiteral("&Open"), this);
    snooze_ = Button("cmdSnooze", QStringLiteral("&Snooze"), this);
    snooze_->setToolTip(QStringLiteral("Remind again in 5 minutes"));
    auto* dismiss = Button("cmdOK", QStringLiteral("&Dismiss"), this);
    row->addWidget(open);
    row->addWidget(snooze_);
    row->addWidget(dismiss);
    box->addLayout(row);
    connect(open, &QPushButton::clicked, this, [this] { run(&ShowReminderForm::cmdEdit_Click); });
    connect(snooze_, &QPushButton::clicked, this, [this] { run(&ShowReminderForm::cmdSnooze_Click); });
    connect(dismiss, &QPushButton::clicked, this, [this] { run(&ShowReminderForm::cmdOK_Click); });
    connect(text_, &QPlainTextEdit::textChanged, this, [this] { form_->txtReminder = text_->toPlainText(); });
    form_->onChanged = [this] { sync(); };
    sync();
}

void AlarmWindow::run(void (ShowReminderForm::*handler)()) {
    // The form may leave the list of alarms inside its handler: hold it until the handler is done.
    std::shared_ptr<ShowReminderForm> keep = form_;
    ((*keep).*handler)();
}

void AlarmWindow::sync() {
    setWindowTitle(form_->Caption);
    title_->setText(form_->lblTitle);
    curPic_->setText(form_->lblCurPic);
    if (text_->toPlainText() != form_->txtReminder) text_->setPlainText(form_->txtReminder);
    Colour(this, form_->BackColor, form_->ForeColor);
    Colour(text_, form_->BackColor, form_->ForeColor);
    const int w = static_cast<int>(std::lround(form_->Width / tx_));
    const int h = static_cast<int>(std::lround(form_->Height / ty_));
    setGeometry(static_cast<int>(std::lround(form_->Left / tx_)),
                static_cast<int>(std::lround(form_->Top / ty_)), w, h);
    if (!form_->Loaded) {
        form_->onChanged = nullptr;
        close();
        return;
    }
    if (form_->Visible && !isVisible()) {
        show();
        raise();
        activateWindow();
        snooze_->setFocus();
    } else if (!form_->Visible && isVisible()) {
        hide();
    }
}

void AlarmWindow::closeEvent(QCloseEvent* ev) {
    // The close box is the same as "&Dismiss".
    if (form_->Loaded) {
        std::shared_ptr<ShowReminderForm> keep = form_;
        keep->cmdOK_Click();
    }
    QWidget::closeEvent(ev);
}

void InstallReminderWindows(Workspace& ws, const QString& programDirectory,
                            std::function<void(const QString&, QWidget*)> registerWindow) {
    DeskState& d = Desk(ws);
    d.showReminderForm = [programDirectory](ReminderForm& form) {
        ReminderDialog dialog(form, programDirectory);
        if (form.Loaded) dialog.exec();
        form.onChanged = nullptr;
    };
    const float tx = ws.TwipsPerPixelX(), ty = ws.TwipsPerPixelY();
    Workspace* w = &ws;
    d.onAlarmLoaded = [w, tx, ty, registerWindow](ShowReminderForm& form) {
        // The window holds the form; the form's list of alarms holds it as well.
        for (const auto& f : Desk(*w).Alarms) {
            if (f.get() != &form) continue;
            auto* win = new AlarmWindow(f, tx, ty);
            if (registerWindow) registerWindow(form.Name, win);
            return;
        }
    };
}

} // namespace pd
