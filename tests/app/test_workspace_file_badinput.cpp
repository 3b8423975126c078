// Bad input for the workspace file reader: random bytes, lines without ends, NUL bytes, 8-bit and UTF-8
// text. The load never fails; it keeps what could be read, and what it saves loads again.

#include "app/WorkspaceFile.h"
#include "app/WorkspaceSettings.h"
#include "app/files/TextFile.h"
#include "support/TestWorkspace.h"

#include <QFile>

#include <gtest/gtest.h>

#include <random>

using namespace pd;
using namespace pd::test;

void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

const QString kIni = QStringLiteral("Perchdock.ini");

QString S(const char* text) { return QString::fromUtf8(text); }

// Loads `bytes` as the workspace file; the caller's workspace is then live.
void StartWith(TestWorkspace& t, const QByteArray& bytes) {
    t.writeData(kIni, bytes);
    t.start();
}

// The state every load must end in, whatever it read.
void ExpectALiveWorkspace(const TestWorkspace& t) {
    EXPECT_FALSE(t.ws->IsLoading);
    EXPECT_FALSE(t.ws->Unloaded);
}

} // namespace

// --- line ends ---

TEST(WorkspaceFileBadInput, ALastLineWithoutItsEndIsRead) {
    TestWorkspace t;
    StartWith(t, QByteArray("[1.05]\r\n[Font Size]\r\n 14 \r\n[Font Name]\r\nArial"));
    EXPECT_EQ(t.ws->LinkFontSize, 14);
    EXPECT_EQ(t.ws->LinkFontName, S("Arial"));
}

TEST(WorkspaceFileBadInput, AKeyWithoutItsValueAtTheEndChangesNothing) {
    TestWorkspace t;
    StartWith(t, QByteArray("[1.05]\r\n[Font Size]\r\n 14 \r\n[Font Name]\r\n"));
    EXPECT_EQ(t.ws->LinkFontSize, 14);
    EXPECT_EQ(t.ws->LinkFontName, S("Verdana"));
}

TEST(WorkspaceFileBadInput, LineFeedsAloneAndCarriageReturnsAloneEndLinesToo) {
    TestWorkspace unix;
    StartWith(unix, QByteArray("[1.05]\n[Font Size]\n 14 \n[Font Name]\nArial\n"));
    EXPECT_EQ(unix.ws->LinkFontSize, 14);
    EXPECT_EQ(unix.ws->LinkFontName, S("Arial"));

    TestWorkspace mac;
    StartWith(mac, QByteArray("[1.05]\r[Font Size]\r 14 \r[Font Name]\rArial\r"));
    EXPECT_EQ(mac.ws->LinkFontSize, 14);
    EXPECT_EQ(mac.ws->LinkFontName, S("Arial"));

    TestWorkspace mixed;
    StartWith(mixed, QByteArray("[1.05]\r\n[Font Size]\n 14 \r[Font Name]\r\nArial"));
    EXPECT_EQ(mixed.ws->LinkFontSize, 14);
    EXPECT_EQ(mixed.ws->LinkFontName, S("Arial"));
}

TEST(WorkspaceFileBadInput, AFileOfOneLineHasOnlyItsMarker) {
    TestWorkspace t;
    StartWith(t, QByteArray("[1.05]"));
    ExpectALiveWorkspace(t);
    EXPECT_TRUE(t.ws->frmMain(0).Visible.get());
    EXPECT_EQ(t.ws->LinkFontName, S("Verdana"));
}

TEST(WorkspaceFileBadInput, AnEmptyFileLoadsTheDefaultsWithoutTheFirstRunPlace) {
    TestWorkspace t;
    StartWith(t, QByteArray());
    ExpectALiveWorkspace(t);
    EXPECT_TRUE(t.ws->frmMain(0).Visible.get());
    EXPECT_EQ(t.ws->LinkFontSize, 10);
    // The file exists, so this is no first run: the window keeps the place of its load.
    EXPECT_EQ(t.ws->frmMain(0).Top.get(), 0.0f);
    t.exit();
    EXPECT_TRUE(t.readData(kIni).startsWith("[1.05]\r\n[Hidden]\r\n0\r\n"));
}

TEST(WorkspaceFileBadInput, AFolderInPlaceOfTheFileIsAFirstRunAndSavingFailsQuietly) {
    TestWorkspace t;
    ASSERT_TRUE(QDir().mkpath(t.dataFile(kIni)));
    t.start();
    ExpectALiveWorkspace(t);
    EXPECT_EQ(t.ws->frmMain(0).Top.get(), -100.0f);
    t.exit();
    EXPECT_TRUE(QFileInfo(t.dataFile(kIni)).isDir());
    EXPECT_TRUE(t.platform.messages.empty());
}

// --- NUL bytes ---

TEST(WorkspaceFileBadInput, NulBytesAreKeptInValuesAndDoNotStopTheRead) {
    TestWorkspace t;
    static const char raw[] = "[1.05]\r\n[Font Name]\r\nAr\0ial\r\n[Buttons]\r\n\0\r\n[Font\0 Size]\r\n 30 \r\n"
                              "[Large Icon Size]\r\n 24\0 \r\n[Font Size]\r\n 14 \r\n";
    StartWith(t, QByteArray(raw, sizeof raw - 1));
    ExpectALiveWorkspace(t);
    EXPECT_EQ(t.ws->LinkFontName, QString::fromUtf16(u"Ar\0ial", 6));
    EXPECT_EQ(t.ws->ButtonSet, QString(QChar(0)));
    // A key with a NUL in it is no key; a number with a NUL in it is no number.
    EXPECT_EQ(t.ws->LargeIconSize, 32);
    EXPECT_EQ(t.ws->LinkFontSize, 14);
    // Saved as read.
    static const char saved[] = "[Font Name]\r\nAr\0ial\r\n";
    EXPECT_TRUE(WorkspaceFileBytes(*t.ws, false).contains(QByteArray(saved, sizeof saved - 1)));
}

TEST(WorkspaceFileBadInput, AFileOfNulBytesLoadsAsEmpty) {
    TestWorkspace t;
    StartWith(t, QByteArray(4096, '\0'));
    ExpectALiveWorkspace(t);
    EXPECT_EQ(t.ws->LinkFontName, S("Verdana"));
    EXPECT_EQ(t.ws->LinkCount, 0);
}

// --- encodings ---

TEST(WorkspaceFileBadInput, AWindows1252FileIsReadAsSuch) {
    TestWorkspace t;
    StartWith(t, QByteArray("[1.05]\r\n[Font Name]\r\nCaf\xE9 Sans\r\n[Buttons]\r\n\x80 \x93quoted\x94 \x9F\r\n"
                            "[RSS Search0]\r\nna\xEFve\r\n"));
    EXPECT_EQ(t.ws->LinkFontName, S("Café Sans"));
    EXPECT_EQ(t.ws->ButtonSet, S("€ “quoted” Ÿ"));
    EXPECT_EQ(t.ws->menus("mnuRSSSearchItem", 0).Caption(), S("naïve"));
    // Written back as UTF-8.
    const QByteArray file = WorkspaceFileBytes(*t.ws, false);
    EXPECT_TRUE(file.contains("[Font Name]\r\nCaf\xC3\xA9 Sans\r\n"));
}

TEST(WorkspaceFileBadInput, AUtf8FileIsReadAsSuchWithOrWithoutAByteOrderMark) {
    const QByteArray body("[Font Name]\r\nCaf\xC3\xA9 Sans\r\n[Link]\r\n[Size]\r\n 10 \r\n[LinkX]\r\n 1 \r\n[LinkY]\r\n"
                          " 2 \r\n[LinkLabel]\r\n\xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\x81\r\n[LinkType]\r\n 2 \r\n"
                          "[LinkPath]\r\n/home/u/\xC3\xA9t\xC3\xA9\r\n[LinkParam]\r\n\r\n[Color]\r\n-1\r\n[Bold]\r\n0\r\n"
                          "[Confirm]\r\n0\r\n[Command]\r\n 0 \r\n[Icon]\r\n\r\n[GROUP]\r\nt\xC3\xBC\r\n[EXCLUSIVE]\r\n"
                          "m\xC3\xBC\r\n");
    for (const QByteArray& start : {QByteArray("[1.05]\r\n"), QByteArray("\xEF\xBB\xBF[1.05]\r\n")}) {
        TestWorkspace t;
        StartWith(t, start + body);
        EXPECT_EQ(t.ws->LinkFontName, S("Café Sans"));
        ASSERT_EQ(t.ws->LinkCount, 1);
        EXPECT_EQ(t.ws->Link(0).Caption.get(), S("日本 📁"));
        EXPECT_EQ(t.ws->Links[0].LinkPath, S("/home/u/été"));
        EXPECT_EQ(t.ws->Links[0].Tags, S("tü"));
        // The marker was recognised behind the byte order mark: the mark was read.
        EXPECT_EQ(t.ws->Links[0].MarkTag, S("mü"));
        t.exit();
        EXPECT_EQ(t.readData(kIni).mid(t.readData(kIni).indexOf("[Link]")), body.mid(body.indexOf("[Link]")));
    }
}

TEST(WorkspaceFileBadInput, AFileThatIsNotWhollyUtf8IsReadAs8Bit) {
    // One byte that UTF-8 cannot hold makes the whole file 8-bit.
    TestWorkspace t;
    StartWith(t, QByteArray("[1.05]\r\n[Font Name]\r\nCaf\xC3\xA9\r\n[Buttons]\r\nSet \xE9\r\n"));
    EXPECT_EQ(t.ws->LinkFontName, S("CafÃ©"));
    EXPECT_EQ(t.ws->ButtonSet, S("Set é"));
}

TEST(WorkspaceFileBadInput, DecodingKeepsEveryByte) {
    QByteArray all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    const QString text = DecodeText(all);
    ASSERT_EQ(text.size(), 256);
    EXPECT_EQ(text[0xE9], QChar(0xE9));
    EXPECT_EQ(text[0x80], QChar(0x20AC));
    EXPECT_EQ(text[0x81], QChar(0x81));
    EXPECT_EQ(text[0x00], QChar(0));
}

// --- random input ---

namespace {

// Lines a workspace file might hold, good and bad, from which the generator below draws.
const char* const kKeys[] = {
    "[1.05]", "[1.04]", "[1.01]", "[Hidden]", "[WindowState]", "[X]", "[Y]", "[W]", "[H]", "[Align]", "[Buttons]",
    "[Font Size]", "[Font Name]", "[LOCKED]", "[Background]", "[Wallpaper]", "[Stretch]", "[RSSViewerX]",
    "[RSSUseProxy]", "[RSS Search0]", "[RSS Search3]", "[RSS Search1]", "[Picture]", "[Reminder]", "[Link]",
    "[Note]", "[END Note]", "[PicPath]", "[LinkType]", "TEMP", "[Taskbar]",
};
const char* const kValues[] = {
    "0", "1", " 1 ", "2", " 2 ", "-1", "True", "False", " 32767 ", " 32768 ", "-100 ", " 1e38 ", " 3,5 ", "abc",
    "", " ", "1.5.5", "--1", "+7", "0x10", "99999999999", "Dec-25-2030", "08:05 PM", "/tmp", "https://x.example/",
};

QByteArray RandomBytes(std::mt19937& rng, int n) {
    QByteArray b(n, '\0');
    std::uniform_int_distribution<int> byte(0, 255);
    for (char& c : b) c = static_cast<char>(byte(rng));
    return b;
}

// An image that every workspace of these tests can load, and an icon file for reminders.
const QString kPicture = QStringLiteral("/perchdock-test/picture.png");
const QString& ReminderIcon() {
    static QTemporaryDir dir;
    static const QString path = [] {
        const QString p = dir.filePath(QStringLiteral("alarmclock.gif"));
        QFile f(p);
        if (f.open(QIODevice::WriteOnly)) f.write("GIF89a");
        return p;
    }();
    return path;
}

// Whole records, which the generator below writes with some lines dropped or replaced.
std::vector<QByteArray> RecordTemplates() {
    const QByteArray icon = ReminderIcon().toUtf8();
    const QByteArray pic = kPicture.toUtf8();
    return {
        "[Link]\n[Size]\n 10 \n[LinkX]\n 600 \n[LinkY]\n 300 \n[LinkLabel]\nweb\n[LinkType]\n 1 \n[LinkPath]\n"
        "https://x.example/\n[LinkParam]\n\n[Color]\n-1\n[Bold]\n1\n[Confirm]\n0\n[Command]\n 0 \n[Icon]\nTEMP\n"
        "[GROUP]\na,b\n[EXCLUSIVE]\n0",
        "[Link]\n[Size]\n 8.5 \n[LinkX]\n 60 \n[LinkY]\n 30 \n[LinkLabel]\nfile\n[LinkType]\n 2 \n[LinkPath]\n"
        "/tmp/x\n[LinkParam]\n-v\n[Color]\n 255 \n[Bold]\n0\n[Confirm]\n1\n[Command]\n 1 \n[Icon]\n/i.png\n"
        "[GROUP]\n\n[EXCLUSIVE]\nmark",
        "[Picture]\n[Locked]\n1\n[PicX]\n 100 \n[PicY]\n 200 \n[PicW]\n 1740 \n[PicH]\n 1440 \n[PicPath]\n" + pic +
            "\nTEMP\nTEMP\nTEMP\nTEMP",
        "[Picture]\n[Locked]\n0\n[PicX]\n 100.5 \n[PicY]\n-200 \n[PicW]\n 300 \n[PicH]\n 3000 \n[PicPath]\n" + pic +
            "\nTEMP\nTEMP\nTEMP\nTEMP",
        "[Reminder]\n[PicX]\n 700 \n[PicY]\n 800 \n[Date]\nDec-25-2030\n[Time]\n08:05 PM\n[Note]\n  two\nlines  \n"
        "[END Note]\n[PicPath]\n" + icon + "\nTEMP\nTEMP\nTEMP\nTEMP",
    };
}

// A file of known keys, values, whole records and noise in random order and with random line ends.
QByteArray RandomWorkspaceFile(std::mt19937& rng) {
    static const std::vector<QByteArray> records = RecordTemplates();
    std::uniform_int_distribution<int> lines(0, 200), pick(0, 99), bytes(0, 20);
    const char* ends[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", ""};
    auto end = [&] { return QByteArray(ends[static_cast<size_t>(pick(rng)) % std::size(ends)]); };
    QByteArray f = pick(rng) < 80 ? QByteArray("[1.05]\r\n") : QByteArray();
    const int n = lines(rng);
    for (int i = 0; i < n; ++i) {
        const int p = pick(rng);
        if (p < 30) {
            f += kKeys[static_cast<size_t>(p) % std::size(kKeys)];
        } else if (p < 60) {
            f += kValues[static_cast<size_t>(p) % std::size(kValues)];
        } else if (p < 90) {
            // A record, mostly whole: each line is kept, replaced by a value or dropped.
            for (const QByteArray& l : records[static_cast<size_t>(p) % records.size()].split('\n')) {
                const int q = pick(rng);
                if (q < 3) continue;
                f += q < 6 ? QByteArray(kValues[static_cast<size_t>(q) % std::size(kValues)]) : l;
                f += q < 8 ? end() : QByteArray("\r\n");
            }
            continue;
        } else {
            f += RandomBytes(rng, bytes(rng));
        }
        f += end();
    }
    return f;
}

QByteArray LoadAndSave(const QByteArray& bytes) {
    TestWorkspace t;
    t.platform.images[kPicture] = QSize(100, 80);
    t.platform.images[ReminderIcon()] = QSize(32, 32);
    StartWith(t, bytes);
    EXPECT_FALSE(t.ws->IsLoading);
    t.exit();
    return t.readData(kIni);
}

} // namespace

TEST(WorkspaceFileBadInput, RandomBytesNeverStopTheLoad) {
    std::mt19937 rng(20240611);
    std::uniform_int_distribution<int> length(0, 4000);
    for (int i = 0; i < 150; ++i) {
        const QByteArray bytes = RandomBytes(rng, length(rng));
        const QByteArray saved = LoadAndSave(bytes);
        ASSERT_TRUE(saved.startsWith("[1.05]\r\n[Hidden]\r\n")) << "case " << i;
        ASSERT_TRUE(saved.contains("[RSSUseProxy]\r\n")) << "case " << i;
    }
}

TEST(WorkspaceFileBadInput, RandomWorkspaceFilesLoadAndWhatIsSavedLoadsAgain) {
    std::mt19937 rng(77);
    for (int i = 0; i < 300; ++i) {
        const QByteArray bytes = RandomWorkspaceFile(rng);
        const QByteArray first = LoadAndSave(bytes);
        ASSERT_TRUE(first.startsWith("[1.05]\r\n[Hidden]\r\n")) << "case " << i;
        // A saved file settles after one more round (a minimised or hidden window comes back shown and
        // maximised the first time), and from then on loads and saves to itself.
        const QByteArray second = LoadAndSave(first);
        const QByteArray third = LoadAndSave(second);
        ASSERT_EQ(second.toStdString(), third.toStdString()) << "case " << i << "\n" << bytes.toStdString();
    }
}

TEST(WorkspaceFileBadInput, TheReaderTakesAnyLines) {
    // Straight into the key loop, without the file: records that end at once, keys as the last line.
    const QStringList cases[] = {
        {},
        {QStringLiteral("[1.05]"), QStringLiteral("[Link]")},
        {QStringLiteral("[1.05]"), QStringLiteral("[Picture]")},
        {QStringLiteral("[1.05]"), QStringLiteral("[Reminder]")},
        {QStringLiteral("[1.01]"), QStringLiteral("[Reminder]"), QStringLiteral("[PicX]")},
        {QStringLiteral("[1.05]"), QStringLiteral("[RSS Search9]")},
        {QStringLiteral("[1.05]"), QStringLiteral("[Font Size]")},
        {QStringLiteral("[Link]"), QStringLiteral("[Link]"), QStringLiteral("[Link]")},
    };
    for (const QStringList& lines : cases) {
        TestWorkspace t;
        t.start();
        LoadState st;
        ReadWorkspaceLines(*t.ws, lines, st);
        EXPECT_EQ(t.ws->LinkCount, 0) << lines.join(QLatin1Char('|')).toStdString();
        EXPECT_EQ(t.ws->DeskObjectCount, 0);
    }
}
