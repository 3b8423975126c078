#include "app/workspace/Workspace.h"

#include "app/workspace/SettingsMenus.h"
#include "window/Wallpaper.h"

#include <QDir>

namespace pd {

SplashForm::SplashForm(ElementSink** sink)
    : frmSplash("frmSplash", sink, false), lblVersion("lblVersion", sink, false), lblLoad("lblLoad", sink, false),
      ImgRSS("ImgRSS", sink, false), Label2("Label2", sink, false), lblUpdate("lblUpdate", sink, false) {
    frmSplash(0).Visible = false;
    for (ElementFamily* f : {&lblVersion, &lblLoad, &ImgRSS, &Label2, &lblUpdate}) (*f)(0).setContainer(&frmSplash(0));
    ImgRSS(0).Visible = false;
}

Workspace::Workspace(Platform& p, Clock& c) : platform(p), clock(c) {
    DeclareCoreMenus(menus);

    // The design of the main window: the background fills it, the title band and its caption on top.
    Element& win = frmMain(0);
    win.Visible = false;
    win.BackColor = 0x290700;
    for (ElementFamily* f : {&picBack, &picMoveMe, &lblCaption, &lblVersion, &PicDock, &PicLockToolbar,
                             &PicUnLockToolbar, &PicJumpToLink, &PicJumpToLinkTop})
        (*f)(0).setContainer(&win);
    imgBack(0).setContainer(&picBack(0));
    lblRSSRefresh(0).setContainer(&picBack(0));
    // The refresh label is one title button's size: it stands in a feed container's title band at 300
    // twips, where a feed container shows no folder-link button.
    lblRSSRefresh(0).Width = 240;
    lblRSSRefresh(0).Height = 240;
    for (ElementFamily* f : {&PicLockToolbar, &PicUnLockToolbar, &PicJumpToLink, &PicJumpToLinkTop, &lblRSSRefresh,
                             &ImgLock})
        (*f)(0).Visible = false;
    for (ElementFamily* f : {&PicShrinkExpandAllToolbar, &PicFoldUnfoldAllToolbar, &PicRSSRefreshALL, &ImgLock}) {
        (*f)(0).setContainer(&picBack(0));
        (*f)(0).BackStyle = 0;
        (*f)(0).Stretch = true;
    }

    // Member 0 of each object family exists from the start but shows nothing until an object uses it.
    for (ElementFamily* f : {&Group, &Link, &PicIcon, &picPlaceholder, &picTemp, &imgPicture, &LstRSS,
                             &lblRSSLastUpdate})
        (*f)(0).Visible = false;
    Group(0).setContainer(&picBack(0));
    grpBorder(0).setContainer(&Group(0));
    for (ElementFamily* f : {&lblName, &groupName, &chkFold, &chkUnfold, &picShrink, &ShrinkIcon, &txtNote, &picPin,
                             &picPinNote, &picCopy1, &picCopy2, &LstRSS, &lblRSSLastUpdate})
        (*f)(0).setContainer(&grpBorder(0));
    ContainerDesign();
    Link(0).setContainer(&picBack(0));
    PicIcon(0).setContainer(&picBack(0));
    picPlaceholder(0).setContainer(&picBack(0));
    picTemp(0).setContainer(&picBack(0));
    imgPicture(0).setContainer(&picPlaceholder(0));
    picPlaceholder(0).BackColor = 0x800000;
    txtNote(0).BackColor = 0xE1FDFF;
    txtNote(0).ForeColor = 0;
    grpBorder(0).BackColor = 0x290700;
    grpBorder(0).ForeColor = 0xFFFFFF;

    // Labels are transparent; the wallpaper holder stretches its picture.
    for (ElementFamily* f : {&lblCaption, &lblVersion, &lblName, &Link, &lblRSSLastUpdate, &lblRSSRefresh,
                             &splash.lblVersion, &splash.lblLoad, &splash.Label2, &splash.lblUpdate})
        (*f)(0).BackStyle = 0;
    Link(0).AutoSize = true;
    // An icon box shows only its icon: until one is drawn there is nothing to see.
    PicIcon(0).BackStyle = 0;
    // The toolbar buttons show only their images (drawn over the background).
    for (ElementFamily* f : {&PicDock, &PicLockToolbar, &PicUnLockToolbar}) (*f)(0).BackStyle = 0;
    imgBack(0).Stretch = true;
    imgBack(0).BackStyle = 0;
    imgPicture(0).Stretch = true;
    picTemp(0).Stretch = true;

    // The shortcut drag guides and the shortcut toolbar are hidden until a drag or a selection.
    for (ElementFamily* f : {&ShapeMove, &ShapeMovingIcon, &ShapeIconFiller, &LinkLine, &PicLinkToolbar,
                             &ImgLinkGroup, &FrameLinkGroup}) {
        (*f)(0).Visible = false;
        (*f)(0).setContainer(&picBack(0));
    }
    for (ElementFamily* f : {&ShapeMove, &ShapeMovingIcon, &ShapeIconFiller, &LinkLine}) (*f)(0).BackStyle = 0;
    PicLinkColor(0).setContainer(&PicLinkToolbar(0));
    picMiniToolbar(0).setContainer(&PicLinkToolbar(0));
    picMiniToolbar(0).Stretch = true;

    for (ElementFamily* f : {&VerS, &HorS, &VerSIndic, &HorSIndic}) {
        (*f)(0).Visible = false;
        (*f)(0).setContainer(&picBack(0));
    }
    // The selection outlines: a frame only, hidden until a rectangle drag.
    for (ElementFamily* f : {&SelectRect, &SelectedRectGroup}) {
        (*f)(0).Visible = false;
        (*f)(0).BackStyle = 0;
        (*f)(0).BorderStyle = 1;
    }
    SelectRect(0).setContainer(&picBack(0));
    SelectedRectGroup(0).setContainer(&grpBorder(0));
    VerS(0).Width = 15;
    HorS(0).Height = 15;
    VerSIndic(0).Width = 15;
    HorSIndic(0).Height = 15;

    // The wallpaper waits for the first resize after the load.
    TimerResizePic.onTimer = [this] { TimerResizePic_Timer(*this); };
    TimerResizePic.setEnabled(true);

    Containers.resize(2);
    Links.resize(2);
    DeskObjects.resize(2);
}

void Workspace::ContainerDesign() {
    // The design of container 0, which later containers copy: a 20-twip frame, the head row at the top.
    Group(0).Move(600, 200, 3000, 3000);
    grpBorder(0).Move(20, 20, 2970, 2970);
    lblName(0).Move(600, 40, 2175, 200);
    lblName(0).Caption = QStringLiteral("Container");
    lblName(0).BackStyle = 0;
    groupName(0).Move(600, 120, 1335, 250);
    groupName(0).Visible = false;
    txtNote(0).Move(80, 340, 3300, 2415);
    txtNote(0).Visible = false;
    ShrinkIcon(0).Move(80, 330, 720, 720);
    ShrinkIcon(0).Visible = false;
    picShrink(0).Move(60, 30, 240, 240);
    picCopy1(0).Move(330, 30, 240, 240);
    picCopy2(0).Move(330, 30, 240, 240);
    picCopy1(0).ToolTipText = QStringLiteral("Turn ON Folder Link");
    picCopy2(0).ToolTipText = QStringLiteral("Turn OFF Folder Link");
    picPinNote(0).Move(2400, 30, 240, 240);
    picPin(0).Move(2400, 30, 240, 240);
    picPin(0).Visible = false;
    chkFold(0).Move(2610, 30, 240, 240);
    chkUnfold(0).Move(2610, 30, 240, 240);
    chkUnfold(0).Visible = false;
    for (ElementFamily* f : {&picShrink, &picCopy1, &picCopy2, &picPinNote, &picPin, &chkFold, &chkUnfold})
        (*f)(0).Stretch = true;
    lblName(0).FontBold = false;
}

std::vector<ElementFamily*> Workspace::families() {
    return {&frmMain,       &picBack,   &imgBack,        &picMoveMe,        &lblCaption,
            &PicShrinkExpandAllToolbar, &PicFoldUnfoldAllToolbar, &PicRSSRefreshALL, &ImgLock,
            &VerS, &HorS, &VerSIndic, &HorSIndic, &SelectRect, &SelectedRectGroup,
            &lblVersion,    &PicDock,   &PicLockToolbar, &PicUnLockToolbar, &lblRSSRefresh,
            &PicJumpToLink, &PicJumpToLinkTop, &Group,   &grpBorder,        &lblName,
            &groupName,     &chkFold,   &chkUnfold,      &picShrink,        &ShrinkIcon,
            &txtNote,       &picPin,    &picPinNote,     &picCopy1,         &picCopy2,
            &LstRSS,        &lblRSSLastUpdate, &Link,    &PicIcon,          &ShapeMove,
            &ShapeMovingIcon, &ShapeIconFiller, &LinkLine, &PicLinkToolbar, &PicLinkColor,
            &picMiniToolbar, &ImgLinkGroup, &FrameLinkGroup, &picPlaceholder,
            &picTemp,       &imgPicture, &splash.frmSplash, &splash.lblVersion, &splash.lblLoad,
            &splash.ImgRSS, &splash.Label2, &splash.lblUpdate};
}

void Workspace::Dispatch::elementLoaded(Element& e) {
    if (ws->sink) ws->sink->elementLoaded(e);
}

void Workspace::Dispatch::elementChanged(Element& e, Prop p) {
    const bool textChanged = p == Prop::Caption || p == Prop::FontSize || p == Prop::FontName ||
                             p == Prop::FontBold || p == Prop::AutoSize;
    if (e.AutoSize && textChanged) {
        // Setting Width and Height reports them to the view on their own.
        const QSize px = ws->platform.textExtent(e.Caption.get(), e.FontName.get(), ShownFontSize(e.FontSize), e.FontBold);
        e.Width = static_cast<float>(px.width()) * ws->TwipsPerPixelX();
        e.Height = static_cast<float>(px.height()) * ws->TwipsPerPixelY();
    }
    if (ws->sink) ws->sink->elementChanged(e, p);
}

void Workspace::Dispatch::elementUnloading(Element& e) {
    if (ws->sink) ws->sink->elementUnloading(e);
}

void Workspace::showStatus(const QString& text) {
    splash.lblLoad(0).Caption = text;
    if (onStatusShown) onStatusShown();
}

void Workspace::playSound(const QString& name) { platform.playSound(programFile(name)); }

QString Workspace::dataFile(const QString& name) const { return QDir(DataPath).filePath(name); }

QString Workspace::programFile(const QString& name) const { return QDir(ProgramDirectory).filePath(name); }

} // namespace pd
