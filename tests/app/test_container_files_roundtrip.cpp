// A workspace of nested, folded, flipped and shrunk containers, with notes, shortcuts and pictures, saved
// at the exit, loaded in a fresh start and saved again: the same geometry and states, and the same bytes
// in every file.

#include "app/WorkspaceFile.h"
#include "containers/ContainerFiles.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "containers/Shrinking.h"
#include "desk/Notes.h"
#include "desk/Pictures.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"
#include "themes/Buttons.h"
#include "window/RelativeLayout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

using namespace pd;
using namespace pd::test;

namespace {

QString Num(float v) {
    return QString::number(static_cast<double>(v), 'g', 9);
}

QString Parent(const Element& e) {
    const Element* p = e.Container();
    if (!p) return QStringLiteral("none");
    return p->Name() + QLatin1Char('(') + QString::number(p->Index()) + QLatin1Char(')');
}

QString Place(const Element& e) {
    return Num(e.Left) + QLatin1Char(',') + Num(e.Top) + QLatin1Char(' ') + Num(e.Width) + QLatin1Char('x') +
           Num(e.Height);
}

// Everything a user sees of the live containers and of what they hold, one line each.
std::vector<std::string> Snapshot(Workspace& ws) {
    std::vector<std::string> out, objects;
    for (int i = 0; i < ws.Group.Count(); ++i) {
        if (!IsContainerLive(ws, i)) continue;
        const ContainerRecord& r = ws.Containers[i];
        QString s =
            QStringLiteral("container %1 in %2 at %3 name=%4 back=%5 fore=%6 folded=%7 shrunk=%8 "
                           "note=%9 text=[%10] titleTop=%11 flipped=%12 keepX=%13 rec=%14,%15 %16x%17 "
                           "icon=%18 copy=%19 border=%20 frame=%21")
                .arg(i)
                .arg(Parent(ws.Group(i)), Place(ws.Group(i)), ws.lblName(i).Caption.get())
                .arg(ws.grpBorder(i).BackColor.get())
                .arg(ws.grpBorder(i).ForeColor.get())
                .arg(IsFolded(ws, i))
                .arg(!ws.lblName(i).Visible)
                .arg(ws.txtNote(i).Visible.get())
                .arg(TrimAll(ws.txtNote(i).Text))
                .arg(Num(ws.picShrink(i).Top))
                .arg(r.Flipped)
                .arg(r.KeepX)
                .arg(r.X)
                .arg(r.Y)
                .arg(r.W)
                .arg(r.H)
                .arg(r.IconPath, r.CopyPath, Place(ws.grpBorder(i)))
                .arg(ws.Group(i).BackColor.get());
        out.push_back(s.toStdString());
    }
    for (int k = 0; k < ws.Link.Count(); ++k) {
        if (!ws.Link.exists(k) || ws.Links[k].LinkPath.isEmpty()) continue;
        const Element& l = ws.Link(k);
        objects.push_back(QStringLiteral("link in %1 at %2 caption=%3 path=%4 colour=%5 bold=%6 size=%7")
                              .arg(Parent(l), Place(l), l.Caption.get(), ws.Links[k].LinkPath)
                              .arg(l.ForeColor.get())
                              .arg(l.FontBold.get())
                              .arg(Num(l.FontSize))
                              .toStdString());
    }
    for (int j = 0; j < ws.picPlaceholder.Count(); ++j) {
        if (!ws.picPlaceholder.exists(j) || (!ws.picPlaceholder(j).Visible && !ws.picTemp(j).Visible))
            continue;
        objects.push_back(QStringLiteral("picture in %1 at %2 locked=%3 path=%4")
                              .arg(Parent(ws.picPlaceholder(j)), Place(ws.picPlaceholder(j)))
                              .arg(ws.picTemp(j).Visible.get())
                              .arg(ws.DeskObjects[j].PicPath)
                              .toStdString());
    }
    // Shortcuts and pictures are numbered anew by the load (those of the background come first).
    std::sort(objects.begin(), objects.end());
    out.insert(out.end(), objects.begin(), objects.end());
    return out;
}

// Every file of the data folder that a save writes, by name.
std::map<std::string, std::string> Files(const TestWorkspace& t) {
    std::map<std::string, std::string> out;
    for (const QString& name : {QStringLiteral("Perchdock.ini"), QStringLiteral("Perchdock.REC")})
        if (t.dataExists(name)) out[name.toStdString()] = t.readData(name).toStdString();
    const QDir dir(t.dataFile(QStringLiteral("Containers")));
    for (const QString& name : dir.entryList(QDir::Files))
        out["Containers/" + name.toStdString()] =
            t.readData(QStringLiteral("Containers/") + name).toStdString();
    return out;
}

class RoundTrip : public ::testing::Test {
  protected:
    void SetUp() override { t.start(); }
    Workspace& ws() { return *t.ws; }
    int NewContainerAt(float left, float top, const char* name) {
        ws().DropX = left;
        ws().DropY = top;
        mnuNew_Click(ws());
        const int n = ws().ContainerCount - 1;
        ws().groupName(n).Text = QString::fromUtf8(name);
        RenameTextChanged(ws(), n);
        RenameFinished(ws(), n, true);
        return n;
    }
    // What the end of a drag does to a container's place and size.
    void Resize(int i, float w, float h) {
        ws().Group(i).Width = w;
        ws().Group(i).Height = h;
        SetObjectRelativeSize(ws(), i);
        NoteContainerGeometry(ws(), i);
    }
    void MoveTo(int i, float left, float top) {
        ws().Group(i).Move(left, top);
        NoteContainerGeometry(ws(), i);
    }
    void Nest(int child, int parent, float left, float top) {
        ws().Group(child).setContainer(&ws().Group(parent));
        ws().Containers[child].ParentIndex = static_cast<int16_t>(parent);
        MoveTo(child, left, top);
    }
    void Build() {
        const QString png = QStringLiteral("/pictures/cat.png");
        t.platform.images[png] = QSize(40, 30);

        // A plain container with its own colours, shortcuts and a locked picture.
        const int work = NewContainerAt(600, 200, "Work");
        Resize(work, 3600, 2800);
        ws().grpBorder(work).BackColor = 0x403020;
        ws().grpBorder(work).ForeColor = 0x00FFFF;
        ws().lblName(work).ForeColor = 0x00FFFF;
        SetColors(ws(), work, 0x403020);
        AddShortcut(ws(), QStringLiteral("/data/report.txt"), ws().grpBorder(work));
        ws().Link(ws().LinkCount - 1).Move(600, 400);
        AddURL(ws(), QStringLiteral("https://example.org/"), QStringLiteral("Example"), ws().grpBorder(work));
        ws().Link(ws().LinkCount - 1).Move(600, 700);
        ws().Links[ws().LinkCount - 1].Bold = true;
        ws().Link(ws().LinkCount - 1).FontBold = true;
        ASSERT_TRUE(AddPicture(ws(), png));
        ws().picPlaceholder(0).setContainer(&ws().grpBorder(work));
        ws().picTemp(0).setContainer(&ws().grpBorder(work));
        PlacePicture(ws(), 2000, 400);
        ws().SelectedDeskObject = 0;
        ToggleLock(ws());

        // A folded note of several lines.
        mnuNewNote_Click(ws());
        const int note = ws().ContainerCount - 1;
        ws().txtNote(note).Text = QStringLiteral("eggs\r\nmilk\r\n\r\nbread");
        MoveTo(note, 4400, 200);
        FoldContainer(ws(), note);

        // A tile with a shortcut.
        const int tile = NewContainerAt(7500, 300, "Tools");
        AddShortcut(ws(), QStringLiteral("/usr/bin/editor"), ws().grpBorder(tile));
        ws().Link(ws().LinkCount - 1).Move(600, 400);
        ToggleShrink(ws(), tile);

        // A container that opened upward from the lower edge.
        const int flipped = NewContainerAt(4400, 4000, "Upward");
        FoldContainer(ws(), flipped);
        UnfoldContainer(ws(), flipped);

        // A container in Work, and a tile in that one.
        const int inner = NewContainerAt(0, 0, "Inner");
        Nest(inner, work, 200, 900);
        Resize(inner, 2500, 1800);
        AddShortcut(ws(), QStringLiteral("/data/inner.txt"), ws().grpBorder(inner));
        ws().Link(ws().LinkCount - 1).Move(600, 400);
        const int deep = NewContainerAt(0, 0, "Deep");
        Nest(deep, inner, 150, 450);
        ToggleShrink(ws(), deep);

        // A shrunk note.
        mnuNewNote_Click(ws());
        const int shrunkNote = ws().ContainerCount - 1;
        ws().txtNote(shrunkNote).Text = QStringLiteral("call back");
        MoveTo(shrunkNote, 7500, 2000);
        ToggleShrink(ws(), shrunkNote);

        // Shortcuts and a picture on the background.
        AddShortcut(ws(), QStringLiteral("/data/loose.txt"), ws().picBack(0));
        ws().Link(ws().LinkCount - 1).Move(300, 4600);

        // A deleted container, last in the family, with its shortcut.
        const int dead = NewContainerAt(600, 3500, "Dead");
        AddShortcut(ws(), QStringLiteral("/data/dead.txt"), ws().grpBorder(dead));
        ws().ConfirmDelete = false;
        ws().SelectedContainer = static_cast<int16_t>(dead);
        mnuDeleteContainer_Click(ws());
        ws().ConfirmDelete = true;
    }
    TestWorkspace t;
};

} // namespace

TEST_F(RoundTrip, SaveLoadAndSaveAgainGivesTheSameWorkspaceAndTheSameBytes) {
    Build();
    const std::vector<std::string> before = Snapshot(ws());
    ASSERT_EQ(before.size(), 7u + 5u + 1u);
    t.exit();
    const std::map<std::string, std::string> files = Files(t);
    ASSERT_EQ(files.count("Perchdock.ini"), 1u);
    ASSERT_EQ(files.count("Perchdock.REC"), 0u);
    for (int n = 0; n < 7; ++n)
        ASSERT_EQ(files.count("Containers/" + std::to_string(n) + ".con"), 1u) << n;
    ASSERT_EQ(files.size(), 8u);

    t.restart();
    t.platform.messages.clear();
    t.start();
    EXPECT_TRUE(t.platform.messages.empty());
    EXPECT_EQ(ws().ContainerCount, 7);
    EXPECT_EQ(Snapshot(ws()), before);

    t.exit();
    const std::map<std::string, std::string> again = Files(t);
    EXPECT_EQ(again.size(), files.size());
    for (const auto& [name, bytes] : files) {
        auto it = again.find(name);
        ASSERT_NE(it, again.end()) << name;
        EXPECT_EQ(it->second, bytes) << name;
    }
}

TEST_F(RoundTrip, TheLoadedContainersBehaveAsTheSavedOnes) {
    Build();
    t.exit();
    t.restart();
    t.start();
    // The folded note opens to its size; the tile opens to its size; the upward one folds to its bar.
    UnfoldContainer(ws(), 1);
    EXPECT_EQ(ws().Group(1).Height.get(), 3000.0f);
    EXPECT_TRUE(ws().txtNote(1).Visible.get());
    EXPECT_EQ(ws().txtNote(1).Text.get(), QStringLiteral("eggs\r\nmilk\r\n\r\nbread\r\n"));
    ToggleShrink(ws(), 2);
    EXPECT_EQ(ws().Group(2).Width.get(), 3000.0f);
    EXPECT_EQ(ws().Group(2).Left.get(), 9965.0f - 3000.0f - 100.0f);
    FoldContainer(ws(), 3);
    EXPECT_EQ(ws().Group(3).Top.get(), 4000.0f);
    EXPECT_EQ(ws().Group(3).Height.get(), 350.0f);
    // The deep tile opens inside its parent.
    ToggleShrink(ws(), 5);
    EXPECT_EQ(ws().Group(5).Container(), &ws().Group(4));
    EXPECT_EQ(ws().Group(5).Width.get(), 3000.0f);
}
