// File operations: the copy engine (chunks, cancel, names of copies, trash), the wrapper's flags and
// titles, the copy into a folder link with its failure texts, and the delete of a shortcut's file.

#include "shell/FileCopy.h"
#include "shell/FileOperation.h"
#include "shell_test_util.h"
#include "shortcuts/Shortcuts.h"

using namespace pd;
using namespace pd::test;

namespace {
class FileOperations : public ShellTest {};
} // namespace

TEST_F(FileOperations, ACopyWhoseNameIsTakenIsNamedAsFileManagersNameCopies) {
    const QString dir = MakeDir(QStringLiteral("to"));
    EXPECT_EQ(FreeCopyName(dir, QStringLiteral("a.txt")), QStringLiteral("a.txt"));
    MakeFile(QStringLiteral("to/a.txt"));
    EXPECT_EQ(FreeCopyName(dir, QStringLiteral("a.txt")), QStringLiteral("a (copy).txt"));
    MakeFile(QStringLiteral("to/a (copy).txt"));
    EXPECT_EQ(FreeCopyName(dir, QStringLiteral("a.txt")), QStringLiteral("a (copy 2).txt"));
    MakeDir(QStringLiteral("to/folder.d"));
    EXPECT_EQ(FreeCopyName(dir, QStringLiteral("folder.d")), QStringLiteral("folder.d (copy)"));
    MakeFile(QStringLiteral("to/.hidden"));
    EXPECT_EQ(FreeCopyName(dir, QStringLiteral(".hidden")), QStringLiteral(".hidden (copy)"));
}

TEST_F(FileOperations, TheEngineCopiesFilesAndFoldersAndRenamesOnCollision) {
    const QString a = MakeFile(QStringLiteral("from/a.txt"), QByteArray(3 << 20, 'q'));
    MakeFile(QStringLiteral("from/tree/inner/b.txt"), "bee");
    const QString to = MakeDir(QStringLiteral("to"));
    MakeFile(QStringLiteral("to/a.txt"), "old");
    qint64 last = 0, total = 0;
    const FileOpResult r = RunFileOperation(
        {FileOp::Copy, {a, QDir(files.path()).filePath(QStringLiteral("from/tree"))}, to, 264, QString()},
        nullptr, [&](qint64 done, qint64 all, const QString&) {
            EXPECT_GE(done, last);
            last = done;
            total = all;
        });
    EXPECT_EQ(r.result, 0);
    EXPECT_FALSE(r.aborted);
    ASSERT_EQ(r.made.size(), 2);
    EXPECT_EQ(r.made[0], to + QStringLiteral("/a (copy).txt"));
    EXPECT_EQ(QFileInfo(r.made[0]).size(), 3 << 20);
    EXPECT_EQ(last, total);
    QFile b(to + QStringLiteral("/tree/inner/b.txt"));
    ASSERT_TRUE(b.open(QIODevice::ReadOnly));
    EXPECT_EQ(b.readAll(), QByteArray("bee"));
    QFile old(to + QStringLiteral("/a.txt"));
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), QByteArray("old")) << "the file in the way stays as it was";
}

TEST_F(FileOperations, ACancelledCopyIsAbortedAndLeavesNoPartOfTheCopy) {
    const QString a = MakeFile(QStringLiteral("from/big.bin"), QByteArray(4 << 20, 'z'));
    const QString to = MakeDir(QStringLiteral("to"));
    std::atomic<bool> cancel{false};
    const FileOpResult r = RunFileOperation({FileOp::Copy, {a}, to, 264, QString()}, &cancel,
                                            [&](qint64, qint64, const QString&) { cancel = true; });
    EXPECT_TRUE(r.aborted);
    EXPECT_TRUE(r.made.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(to + QStringLiteral("/big.bin")));
}

TEST_F(FileOperations, FailuresGiveTheErrorNumber) {
    const QString to = MakeDir(QStringLiteral("to"));
    EXPECT_EQ(
        RunFileOperation({FileOp::Copy, {to + QStringLiteral("/none")}, to, 264, QString()}, nullptr, {})
            .result,
        ENOENT);
    const QString a = MakeFile(QStringLiteral("a.txt"));
    EXPECT_EQ(RunFileOperation({FileOp::Copy, {a}, to + QStringLiteral("/gone"), 264, QString()}, nullptr, {})
                  .result,
              ENOENT);
    MakeFile(QStringLiteral("to/a.txt"));
    EXPECT_EQ(
        RunFileOperation({FileOp::Copy, {a}, to, FileOp::SimpleProgress, QString()}, nullptr, {}).result,
        EEXIST)
        << "without rename on collision a name taken is an error";
}

TEST_F(FileOperations, ADeleteWithoutUndoRemovesForGood) {
    const QString a = MakeFile(QStringLiteral("d/a.txt"));
    const QString d = MakeDir(QStringLiteral("e/f"));
    const FileOpResult r =
        RunFileOperation({FileOp::Delete, {a, d}, QString(), FileOp::SimpleProgress, QString()}, nullptr, {});
    EXPECT_EQ(r.result, 0);
    EXPECT_FALSE(QFileInfo::exists(a));
    EXPECT_FALSE(QFileInfo::exists(d));
}

TEST_F(FileOperations, TheWrapperPassesTheRecordAndGivesTheAbortedFlagBack) {
    t.platform.fileOpResults.push_back({0, true, {}});
    bool aborted = false;
    const int r = FileOperation(ws(),
                                {FileOp::Copy,
                                 {QStringLiteral("/x")},
                                 QStringLiteral("/y"),
                                 kCopyFlags,
                                 QStringLiteral("File Copy in Progress..")},
                                aborted);
    EXPECT_EQ(r, 0);
    EXPECT_TRUE(aborted);
    ASSERT_EQ(t.platform.fileOps.size(), 1u);
    EXPECT_EQ(t.platform.fileOps[0].flags, 264);
    EXPECT_EQ(kDeleteFlags, 320);
}

TEST_F(FileOperations, ACopyIntoAFolderLinkPointsTheShortcutAtTheCopy) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString src = MakeFile(QStringLiteral("src/doc.txt"), "text");
    const int c = LinkedContainer(folder);
    AddShortcut(ws(), src, ws().grpBorder(c));
    const int n = Last();
    EXPECT_TRUE(CopyIntoFolderLink(ws(), n, src, folder, false));
    ASSERT_EQ(t.platform.fileOps.size(), 1u);
    const FileOpRequest& op = t.platform.fileOps[0];
    EXPECT_EQ(op.func, FileOp::Copy);
    EXPECT_EQ(op.from, QStringList{src});
    EXPECT_EQ(op.to, folder);
    EXPECT_EQ(op.flags, 264);
    EXPECT_EQ(op.title, QStringLiteral("File Copy in Progress.."));
    EXPECT_EQ(ws().Links[n].LinkPath, folder + QStringLiteral("/doc.txt"));
    EXPECT_TRUE(QFileInfo::exists(folder + QStringLiteral("/doc.txt")));
    EXPECT_TRUE(QFileInfo::exists(src)) << "a copy keeps the source";
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST_F(FileOperations, ACancelledCopySaysSoAndTheShortcutStaysOnTheSource) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString src = MakeFile(QStringLiteral("src/doc.txt"));
    const int c = LinkedContainer(folder);
    AddShortcut(ws(), src, ws().grpBorder(c));
    t.platform.fileOpResults.push_back({0, true, {}});
    EXPECT_FALSE(CopyIntoFolderLink(ws(), Last(), src, folder, true));
    EXPECT_EQ(ws().Links[Last()].LinkPath, src);
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("Copy Operation Failed"));
    EXPECT_EQ(t.platform.messages[0].style, 4112);
    EXPECT_EQ(t.platform.fileOps.size(), 1u) << "no move follows a failed copy";
    EXPECT_TRUE(t.platform.trashed.empty());
}

TEST_F(FileOperations, AFailedCopyShowsTheErrorNumber) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString src = MakeFile(QStringLiteral("src/doc.txt"));
    const int c = LinkedContainer(folder);
    AddShortcut(ws(), src, ws().grpBorder(c));
    t.platform.fileOpResults.push_back({28, false, {}});
    EXPECT_FALSE(CopyIntoFolderLink(ws(), Last(), src, folder, false));
    ASSERT_EQ(t.platform.messages.size(), 1u);
    EXPECT_EQ(t.platform.messages[0].text, QStringLiteral("28"));
    EXPECT_EQ(t.platform.messages[0].style, 4112);
    EXPECT_EQ(ws().Links[Last()].LinkPath, src);
}

TEST_F(FileOperations, AMoveCopiesThenSendsTheSourceToTheTrash) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    const QString src = MakeFile(QStringLiteral("src/doc.txt"));
    const int c = LinkedContainer(folder);
    AddShortcut(ws(), src, ws().grpBorder(c));
    EXPECT_TRUE(CopyIntoFolderLink(ws(), Last(), src, folder, true));
    ASSERT_EQ(t.platform.fileOps.size(), 2u);
    EXPECT_EQ(t.platform.fileOps[1].func, FileOp::Delete);
    EXPECT_EQ(t.platform.fileOps[1].from, QStringList{src});
    EXPECT_EQ(t.platform.fileOps[1].flags, 320);
    EXPECT_EQ(t.platform.fileOps[1].title, QStringLiteral("Moving..."));
    EXPECT_EQ(t.platform.trashed, std::vector<QString>{src});

    // A cancelled delete says the move failed; the shortcut keeps the copy.
    const QString src2 = MakeFile(QStringLiteral("src/two.txt"));
    AddShortcut(ws(), src2, ws().grpBorder(c));
    t.platform.fileOpResults = {{0, false, {}}, {0, true, {}}};
    EXPECT_TRUE(CopyIntoFolderLink(ws(), Last(), src2, folder, true));
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("Move Operation Failed"));
    EXPECT_EQ(ws().Links[Last()].LinkPath, folder + QStringLiteral("/two.txt"));
    t.platform.fileOpResults = {{0, false, {}}, {13, false, {}}};
    const QString src3 = MakeFile(QStringLiteral("src/three.txt"));
    AddShortcut(ws(), src3, ws().grpBorder(c));
    CopyIntoFolderLink(ws(), Last(), src3, folder, true);
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("13"));
}

TEST_F(FileOperations, AFileAlreadyInTheFolderOrAFolderGoneIsNotCopied) {
    const QString folder = MakeDir(QStringLiteral("linked"));
    MakeFile(QStringLiteral("linked/doc.txt"));
    const QString src = MakeFile(QStringLiteral("src/doc.txt"));
    const int c = LinkedContainer(folder);
    AddShortcut(ws(), src, ws().grpBorder(c));
    EXPECT_FALSE(CopyIntoFolderLink(ws(), Last(), src, folder, true));
    EXPECT_FALSE(CopyIntoFolderLink(ws(), Last(), src, folder + QStringLiteral("/gone"), false));
    EXPECT_TRUE(t.platform.fileOps.empty());
    EXPECT_EQ(ws().Links[Last()].LinkPath, src);
    EXPECT_TRUE(t.platform.messages.empty());
}

TEST_F(FileOperations, DeletingAShortcutsFileGoesThroughTheWrapperAsDeleting) {
    const QString file = MakeFile(QStringLiteral("old.txt"));
    t.platform.answers = {MsgAnswer::Yes, MsgAnswer::Yes};
    EXPECT_EQ(DeleteFromDisk(ws(), file), 0);
    ASSERT_EQ(t.platform.fileOps.size(), 1u);
    EXPECT_EQ(t.platform.fileOps[0].func, FileOp::Delete);
    EXPECT_EQ(t.platform.fileOps[0].flags, 320);
    EXPECT_EQ(t.platform.fileOps[0].title, QStringLiteral("Deleting..."));
    t.platform.fileOpResults.push_back({0, true, {}});
    EXPECT_EQ(DeleteFromDisk(ws(), file), 0);
    EXPECT_EQ(t.platform.messages.back().text, QStringLiteral("Delete Operation Failed"));
    EXPECT_EQ(t.platform.messages.back().style, 4112);
}
