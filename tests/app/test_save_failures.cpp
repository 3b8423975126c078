// Saves that fail part way, as on a full disk: the writes of the files are made to stop after a number
// of bytes (or their flush to fail), and every file must then hold its last whole version, no
// temporary file may be left, the workspace in memory must be untouched, and the next save after the
// disk has room again must write everything. Also the clean-up of temporary files that a crash leaves,
// and the recovery file taking the workspace file's place in one step.

#include "app/MainWindow.h"
#include "app/Recovery.h"
#include "app/WorkspaceFile.h"
#include "app/files/AtomicFile.h"
#include "app/files/TextFile.h"
#include "containers/ContainerFiles.h"
#include "containers/Containers.h"
#include "containers/Folding.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <string>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

const QString kIni = QStringLiteral("Perchdock.ini");
const QString kRec = QStringLiteral("Perchdock.REC");

QString Con(int n) { return QStringLiteral("Containers/") + QString::number(n) + QStringLiteral(".con"); }

// The path of an open file, from the process's table of open files.
std::string PathOf(int fd) {
    char buf[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(fd);
    const ssize_t n = ::readlink(link.c_str(), buf, sizeof buf - 1);
    return n > 0 ? std::string(buf, static_cast<size_t>(n)) : std::string();
}

// Lets `budget` bytes through in all, then takes part of the next write and refuses the rest with
// ENOSPC, as a disk that fills does. With `only` given, only files whose path holds it are hit.
class FullDisk {
public:
    explicit FullDisk(qint64 budget, std::string only = {}) : budget_(budget), only_(std::move(only)) {
        FileWriteCalls calls;
        calls.write = [this](int fd, const void* data, size_t size) -> ssize_t {
            if (!only_.empty() && PathOf(fd).find(only_) == std::string::npos) return ::write(fd, data, size);
            ++writes;
            if (budget_ <= 0) {
                errno = ENOSPC;
                return -1;
            }
            const size_t n = std::min<size_t>(size, static_cast<size_t>(budget_));
            budget_ -= static_cast<qint64>(n);
            return ::write(fd, data, n);
        };
        previous_ = SetFileWriteCalls(std::move(calls));
    }
    ~FullDisk() { SetFileWriteCalls(previous_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    int writes = 0;

private:
    qint64 budget_;
    std::string only_;
    FileWriteCalls previous_;
};

// Every flush fails with the given error, as a disk whose space runs out when the data is placed.
class FailingSync {
public:
    explicit FailingSync(int error) {
        FileWriteCalls calls;
        calls.sync = [error](int) {
            errno = error;
            return -1;
        };
        previous_ = SetFileWriteCalls(std::move(calls));
    }
    ~FailingSync() { SetFileWriteCalls(previous_); }
    FailingSync(const FailingSync&) = delete;
    FailingSync& operator=(const FailingSync&) = delete;

private:
    FileWriteCalls previous_;
};

class SaveFailures : public ::testing::Test {
protected:
    void SetUp() override {
        WireCoreCommands(*t.ws);
        t.start();
    }
    Workspace& ws() { return *t.ws; }
    void Save() { SaveDesktop(ws(), true, false); }

    // Every file of the data folder and of Containers/, by its name there.
    std::map<QString, QByteArray> Files() const {
        std::map<QString, QByteArray> files;
        for (const QString& folder : {QString(), QStringLiteral("Containers")}) {
            const QDir dir(t.dataFile(folder));
            for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden)) {
                const QString key = folder.isEmpty() ? name : folder + QLatin1Char('/') + name;
                files[key] = t.readData(key);
            }
        }
        return files;
    }

    // Three containers with names, one of them holding a note, saved to the recovery file.
    void MakeThreeAndSave() {
        for (int k = 0; k < 3; ++k) {
            const int n = t.newContainerAt(600.0f + 3100.0f * static_cast<float>(k), 200.0f);
            ws().lblName(n).Caption = QStringLiteral("Box ") + QString::number(k);
        }
        ws().txtNote(1).Text = QStringLiteral("A note\r\nof two lines");
        Save();
        ASSERT_TRUE(t.dataExists(kRec));
        ASSERT_TRUE(t.dataExists(Con(2)));
    }

    // Changes every container, so that a save rewrites every file.
    void ChangeAll(const QString& suffix) {
        for (int n = 0; n < 3; ++n) ws().lblName(n).Caption = ws().lblName(n).Caption.get() + suffix;
        ws().picBack(0).BackColor = 0x123456 + static_cast<int32_t>(suffix.size());
    }

    TestWorkspace t;
};

} // namespace

TEST_F(SaveFailures, NoRoomAtAllKeepsEveryFileAsItWas) {
    MakeThreeAndSave();
    const auto before = Files();
    ChangeAll(QStringLiteral(" changed"));
    {
        FullDisk disk(0);
        Save();
        EXPECT_GT(disk.writes, 0);
    }
    // Every file is the old one, byte for byte, and no temporary file is left.
    EXPECT_EQ(Files(), before);
    // The workspace in memory keeps the changes.
    EXPECT_EQ(ws().lblName(2).Caption, QStringLiteral("Box 2 changed"));
}

TEST_F(SaveFailures, ADiskThatFillsInTheMiddleOfAFileKeepsThatFileAndTheRestWhole) {
    MakeThreeAndSave();
    const auto before = Files();
    ChangeAll(QStringLiteral(" changed"));
    const QByteArray newRec = WorkspaceFileBytes(ws(), false);
    // Room for the new recovery file and half of the first container file.
    {
        FullDisk disk(newRec.size() + 100);
        Save();
    }
    const auto after = Files();
    ASSERT_EQ(after.size(), before.size()) << "a file was added or removed";
    EXPECT_EQ(after.at(kRec), newRec);
    // The first container file could not be written whole: it is the old one, and so are those after.
    for (int n = 0; n < 3; ++n) EXPECT_EQ(after.at(Con(n)), before.at(Con(n))) << Con(n).toStdString();

    // With room again, the next save writes everything, although nothing changed since the failed one.
    Save();
    const auto healed = Files();
    for (int n = 0; n < 3; ++n) {
        const QByteArray bytes = healed.at(Con(n));
        EXPECT_TRUE(bytes.contains("[Name]\r\nBox " + QByteArray::number(n) + " changed\r\n")) << bytes.toStdString();
    }
    EXPECT_EQ(healed.at(kRec), newRec);

    // And a restart loads the saved state.
    t.restart();
    WireCoreCommands(*t.ws);
    t.platform.answers.push_back(MsgAnswer::Yes);
    t.start();
    ASSERT_EQ(ws().ContainerCount, 3);
    EXPECT_EQ(ws().lblName(1).Caption, QStringLiteral("Box 1 changed"));
    EXPECT_TRUE(ws().txtNote(1).Text.get().startsWith(QStringLiteral("A note\r\nof two lines")));
}

TEST_F(SaveFailures, AContainerFileCutShortIsNeverInPlace) {
    MakeThreeAndSave();
    const auto before = Files();
    ChangeAll(QStringLiteral(" changed"));
    Save();
    const auto full = Files();
    qint64 total = 0;
    for (const auto& [name, bytes] : full) total += bytes.size();
    // Every budget from nothing to a whole save: at each, every file is one of its two whole versions.
    for (qint64 budget = 0; budget <= total; budget += 97) {
        // The old files on disk, and the record of what they hold.
        for (const auto& [name, bytes] : before) t.writeData(name, bytes);
        for (int n = 0; n < 3; ++n) ws().SavedContainerFiles[QStringLiteral("%1.con").arg(n)] = before.at(Con(n));
        {
            FullDisk disk(budget);
            Save();
        }
        for (const auto& [name, bytes] : Files()) {
            const bool old = before.count(name) && before.at(name) == bytes;
            const bool fresh = full.count(name) && full.at(name) == bytes;
            EXPECT_TRUE(old || fresh) << name.toStdString() << " at a budget of " << budget << " bytes";
        }
        // The next save with room completes the files.
        Save();
        EXPECT_EQ(Files(), full) << "after a budget of " << budget << " bytes";
    }
}

TEST_F(SaveFailures, AFailedFlushKeepsTheOldFile) {
    MakeThreeAndSave();
    const auto before = Files();
    ChangeAll(QStringLiteral(" changed"));
    {
        FailingSync sync(ENOSPC);
        Save();
    }
    EXPECT_EQ(Files(), before);
    Save();
    EXPECT_TRUE(t.readData(Con(0)).contains("Box 0 changed"));
}

TEST_F(SaveFailures, AFileSystemThatCannotFlushStillSaves) {
    MakeThreeAndSave();
    ChangeAll(QStringLiteral(" changed"));
    {
        FailingSync sync(EINVAL);
        Save();
    }
    EXPECT_TRUE(t.readData(Con(0)).contains("Box 0 changed"));
}

TEST_F(SaveFailures, AFailedWriteWhileContainersAreRenumberedLosesNoContainer) {
    // Five containers; the second goes, so that the files after it move down by one.
    for (int k = 0; k < 5; ++k) {
        const int n = t.newContainerAt(600.0f + 3100.0f * static_cast<float>(k), 200.0f);
        ws().lblName(n).Caption = QStringLiteral("Box ") + QString::number(k);
    }
    Save();
    const auto before = Files();
    ws().ConfirmDelete = false;
    ws().SelectedContainer = 1;
    {
        // 1.con takes Box 2, and the write of 2.con (Box 3) fails.
        FullDisk disk(0, "/Containers/2.con.");
        mnuDeleteContainer_Click(ws());
        EXPECT_GT(disk.writes, 0);
    }
    EXPECT_TRUE(t.readData(Con(1)).contains("[Name]\r\nBox 2\r\n"));
    // Every container that is still there has a file; none was overwritten before it was copied.
    QByteArray all;
    for (int n = 0; n < 5; ++n) {
        ASSERT_TRUE(t.dataExists(Con(n))) << n;
        all += t.readData(Con(n));
    }
    for (int k : {0, 2, 3, 4}) EXPECT_TRUE(all.contains("[Name]\r\nBox " + QByteArray::number(k) + "\r\n")) << k;
    // With room again the next save finishes the renumbering and removes the last file.
    Save();
    EXPECT_FALSE(t.dataExists(Con(4)));
    const char* names[] = {"Box 0", "Box 2", "Box 3", "Box 4"};
    for (int n = 0; n < 4; ++n)
        EXPECT_TRUE(t.readData(Con(n)).contains(QByteArray("[Name]\r\n") + names[n] + "\r\n")) << n;
}

TEST_F(SaveFailures, ANewContainerWhoseFileFailsIsWrittenByTheNextSave) {
    MakeThreeAndSave();
    {
        FullDisk disk(0, "/Containers/3.con.");
        t.newContainerAt(600, 4000);
        EXPECT_GT(disk.writes, 0);
    }
    EXPECT_FALSE(t.dataExists(Con(3)));
    EXPECT_TRUE(t.readData(kRec).size() > 0);
    Save();
    EXPECT_TRUE(t.dataExists(Con(3)));
}

TEST_F(SaveFailures, AFailedCleanSaveKeepsTheRecoveryFile) {
    MakeThreeAndSave();
    const QByteArray rec = t.readData(kRec);
    {
        FullDisk disk(0);
        SaveDesktop(ws(), false, false);
    }
    EXPECT_FALSE(t.dataExists(kIni));
    EXPECT_EQ(t.readData(kRec), rec);
    SaveDesktop(ws(), false, false);
    EXPECT_TRUE(t.dataExists(kIni));
    EXPECT_FALSE(t.dataExists(kRec));
}

TEST_F(SaveFailures, TheNewFileKeepsTheOldOnesPermissions) {
    MakeThreeAndSave();
    const QString path = t.dataFile(Con(0));
    ASSERT_TRUE(QFile::setPermissions(path, QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    ChangeAll(QStringLiteral(" changed"));
    Save();
    EXPECT_TRUE(t.readData(Con(0)).contains("Box 0 changed"));
    struct stat st {};
    ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &st), 0);
    EXPECT_EQ(st.st_mode & 07777, 0600u);
}

// A crash between the writes of one save, played by a disk that takes the first file written and no
// more: a shortcut that moved between the background and a container must be in one file at least.
TEST_F(SaveFailures, AShortcutMovedIntoAContainerIsNeverInNeitherFile) {
    MakeThreeAndSave();
    AddURL(ws(), QStringLiteral("https://example.org/moving"), QStringLiteral("Moving"), ws().picBack(0));
    Save();
    ASSERT_TRUE(t.readData(kRec).contains("example.org/moving"));
    ws().Link(0).setContainer(&ws().grpBorder(1));
    ws().Link(0).Move(300, 600);
    for (const char* failing : {"/Containers/", "/Perchdock.REC."}) {
        {
            FullDisk disk(0, failing);
            Save();
        }
        const bool inRec = t.readData(kRec).contains("example.org/moving");
        const bool inContainer = t.readData(Con(1)).contains("example.org/moving");
        EXPECT_TRUE(inRec || inContainer) << failing;
    }
    // With room the next save leaves it in the container only.
    Save();
    EXPECT_FALSE(t.readData(kRec).contains("example.org/moving"));
    EXPECT_TRUE(t.readData(Con(1)).contains("example.org/moving"));
}

class ShortcutMovedBetweenContainers : public SaveFailures, public ::testing::WithParamInterface<const char*> {};

// From container 0 to container 2 and back: the file that gains the shortcut is written first, whichever
// number it has, so a write that fails (as a crash between the two writes would) leaves it in one file.
TEST_P(ShortcutMovedBetweenContainers, IsNeverInNeitherFile) {
    MakeThreeAndSave();
    AddURL(ws(), QStringLiteral("https://example.org/moving"), QStringLiteral("Moving"), ws().grpBorder(0));
    Save();
    ASSERT_TRUE(t.readData(Con(0)).contains("example.org/moving"));
    for (int to : {2, 0}) {
        ws().Link(0).setContainer(&ws().grpBorder(to));
        ws().Link(0).Move(300, 600);
        {
            FullDisk disk(0, GetParam());
            Save();
        }
        int copies = 0;
        for (int n = 0; n < 3; ++n) copies += t.readData(Con(n)).contains("example.org/moving") ? 1 : 0;
        EXPECT_GE(copies, 1) << "moved to " << to << ", failing " << GetParam();
        // With room the next save leaves it in the container it went to only.
        Save();
        for (int n = 0; n < 3; ++n)
            EXPECT_EQ(t.readData(Con(n)).contains("example.org/moving"), n == to) << n;
    }
}

INSTANTIATE_TEST_SUITE_P(EitherFileFails, ShortcutMovedBetweenContainers,
                         ::testing::Values("/0.con.", "/2.con."));

class ShortcutMovedOut : public SaveFailures, public ::testing::WithParamInterface<const char*> {};

TEST_P(ShortcutMovedOut, IsNeverInNeitherFile) {
    MakeThreeAndSave();
    AddURL(ws(), QStringLiteral("https://example.org/moving"), QStringLiteral("Moving"), ws().grpBorder(1));
    Save();
    ASSERT_TRUE(t.readData(Con(1)).contains("example.org/moving"));
    ws().Link(0).setContainer(&ws().picBack(0));
    ws().Link(0).Move(9000, 6000);
    {
        // The disk takes nothing of one kind of file: the other is written alone, as when a crash
        // comes between the two writes, whichever comes first.
        FullDisk disk(0, GetParam());
        Save();
    }
    const bool inRec = t.readData(kRec).contains("example.org/moving");
    const bool inContainer = t.readData(Con(1)).contains("example.org/moving");
    EXPECT_TRUE(inRec || inContainer);
    Save();
    EXPECT_TRUE(t.readData(kRec).contains("example.org/moving"));
    EXPECT_FALSE(t.readData(Con(1)).contains("example.org/moving"));
}

INSTANTIATE_TEST_SUITE_P(EitherFileFails, ShortcutMovedOut, ::testing::Values("/Containers/", "/Perchdock.REC."));

TEST(SaveFailuresAtStart, TemporaryFilesOfACrashedSaveAreRemovedAndOthersKept) {
    TestWorkspace t;
    t.writeData(kIni, CrLf({"[1.05]", "[Font Name]", "Clean"}));
    t.writeData(QStringLiteral("Perchdock.ini.Ab3dE9"), "[1.05]\r\n[Font");
    t.writeData(QStringLiteral("Perchdock.REC.x0x0x0"), "[1.05]\r\n");
    t.writeData(QStringLiteral("Perchdock.ini.toolong7"), "mine");
    t.writeData(QStringLiteral("notes.txt.abcdef"), "mine");
    t.writeData(Con(0), CrLf({"[1.05]", "[Container]", "-1", "[Name]", "Kept"}));
    t.writeData(QStringLiteral("Containers/0.con.Q1w2E3"), "[1.05]\r\n[Cont");
    t.writeData(QStringLiteral("Containers/12.con.zzzzzz"), "[1.05]\r\n");
    t.writeData(QStringLiteral("Containers/x.con.abcdef"), "mine");
    WireCoreCommands(*t.ws);
    t.start();
    EXPECT_FALSE(t.dataExists(QStringLiteral("Perchdock.ini.Ab3dE9")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Perchdock.REC.x0x0x0")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/0.con.Q1w2E3")));
    EXPECT_FALSE(t.dataExists(QStringLiteral("Containers/12.con.zzzzzz")));
    EXPECT_TRUE(t.dataExists(QStringLiteral("Perchdock.ini.toolong7")));
    EXPECT_TRUE(t.dataExists(QStringLiteral("notes.txt.abcdef")));
    EXPECT_TRUE(t.dataExists(QStringLiteral("Containers/x.con.abcdef")));
    EXPECT_TRUE(t.dataExists(kIni));
    EXPECT_EQ(t.ws->lblName(0).Caption, QStringLiteral("Kept"));
}

TEST(SaveFailuresAtStart, AcceptedRecoveryFileReplacesTheWorkspaceFileInOneStep) {
    TestWorkspace t;
    const QByteArray rec = CrLf({"[1.05]", "[Font Name]", "Recovered"});
    t.writeData(kIni, CrLf({"[1.05]", "[Font Name]", "Clean"}));
    t.writeData(kRec, rec);
    WireCoreCommands(*t.ws);
    t.platform.answers.push_back(MsgAnswer::Yes);
    t.start();
    EXPECT_EQ(t.readData(kIni), rec);
    EXPECT_FALSE(t.dataExists(kRec));
}
