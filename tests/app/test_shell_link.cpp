// Windows shell links: our reader against links built byte by byte here (local, Unicode, network, mapped
// drives, relative paths, environment blocks, ID lists, every truncation, lying size fields) and against
// the real links of the shared corpus, whose expected targets are listed below.

#include "shortcuts/ShellLink.h"
#include "shortcuts/Shortcuts.h"
#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>

using namespace pd;
using namespace pd::test;

namespace {

void PutU16(QByteArray& b, std::uint16_t v) {
    b.append(char(v & 0xFF));
    b.append(char(v >> 8));
}
void PutU32(QByteArray& b, std::uint32_t v) {
    PutU16(b, std::uint16_t(v & 0xFFFF));
    PutU16(b, std::uint16_t(v >> 16));
}
void SetU32(QByteArray& b, qsizetype at, std::uint32_t v) {
    for (int i = 0; i < 4; ++i)
        b[at + i] = char((v >> (8 * i)) & 0xFF);
}
std::uint32_t GetU32(const QByteArray& b, qsizetype at) {
    std::uint32_t v = 0;
    std::memcpy(&v, b.constData() + at, 4); // the tests run on little-endian machines
    return v;
}
void SetU16(QByteArray& b, qsizetype at, std::uint16_t v) {
    b[at] = char(v & 0xFF);
    b[at + 1] = char(v >> 8);
}
QByteArray Z(const QByteArray& s) {
    return s + QByteArray(1, '\0');
}
QByteArray UZ(const QString& s) {
    QByteArray b;
    for (const QChar c : s)
        PutU16(b, c.unicode());
    PutU16(b, 0);
    return b;
}
QString U(const char* utf8) {
    return QString::fromUtf8(utf8);
}

// The parts of a LinkInfo structure; empty parts are left out.
struct LinkInfoSpec {
    QByteArray base;      // LocalBasePath (8-bit); with it comes a VolumeID
    QByteArray suffix;    // CommonPathSuffix (8-bit)
    bool unicode = false; // a header of 0x24 bytes with the two Unicode offsets
    QString unicodeBase;
    QString unicodeSuffix;
    QByteArray netName; // with it comes a CommonNetworkRelativeLink
    QByteArray deviceName;
    bool unicodeNet = false;
    QString unicodeNetName;
    QString unicodeDeviceName;
    QByteArray volumeLabel = "DATA";
};

QByteArray MakeLinkInfo(const LinkInfoSpec& s) {
    const bool local = !s.base.isEmpty() || !s.unicodeBase.isEmpty();
    const bool net = !s.netName.isEmpty() || !s.unicodeNetName.isEmpty();
    const std::uint32_t headerSize = s.unicode ? 0x24 : 0x1C;
    QByteArray b(headerSize, '\0');
    SetU32(b, 4, headerSize);
    SetU32(b, 8, (local ? 1u : 0u) | (net ? 2u : 0u));
    if (local) {
        SetU32(b, 12, std::uint32_t(b.size()));
        QByteArray volume;
        PutU32(volume, 0);          // size, set below
        PutU32(volume, 3);          // fixed drive
        PutU32(volume, 0x1234ABCD); // serial number
        PutU32(volume, 0x10);       // label offset
        volume += Z(s.volumeLabel);
        SetU32(volume, 0, std::uint32_t(volume.size()));
        b += volume;
        SetU32(b, 16, std::uint32_t(b.size()));
        b += Z(s.base);
    }
    if (net) {
        SetU32(b, 20, std::uint32_t(b.size()));
        const std::uint32_t netHeader = s.unicodeNet ? 0x1C : 0x14;
        QByteArray n(netHeader, '\0');
        SetU32(n, 4, (s.deviceName.isEmpty() && s.unicodeDeviceName.isEmpty() ? 0u : 1u) | 2u);
        SetU32(n, 8, std::uint32_t(n.size()));
        n += Z(s.netName);
        SetU32(n, 12, std::uint32_t(n.size()));
        n += Z(s.deviceName);
        SetU32(n, 16, 0x00020000);
        if (s.unicodeNet) {
            SetU32(n, 0x14, std::uint32_t(n.size()));
            n += UZ(s.unicodeNetName);
            SetU32(n, 0x18, std::uint32_t(n.size()));
            n += UZ(s.unicodeDeviceName);
        }
        SetU32(n, 0, std::uint32_t(n.size()));
        b += n;
    }
    SetU32(b, 24, std::uint32_t(b.size()));
    b += Z(s.suffix);
    if (s.unicode) {
        if (local) {
            SetU32(b, 28, std::uint32_t(b.size()));
            b += UZ(s.unicodeBase);
        }
        SetU32(b, 32, std::uint32_t(b.size()));
        b += UZ(s.unicodeSuffix);
    }
    SetU32(b, 0, std::uint32_t(b.size()));
    return b;
}

// An ID list item from its data (the size field is added).
QByteArray Item(const QByteArray& data) {
    QByteArray b;
    PutU16(b, std::uint16_t(data.size() + 2));
    return b + data;
}
QByteArray MyComputerItem() {
    return Item(QByteArray::fromHex("1f50e04fd020ea3a6910a2d808002b30309d"));
}
QByteArray DriveItem(const QByteArray& drive) {
    QByteArray d = "\x2f" + Z(drive);
    d.resize(0x17, '\0');
    return Item(d);
}
// A file-system item with its 8.3 name and, when given, an extension block of `version` holding the
// long name.
QByteArray FileItem(const QByteArray& shortName, const QString& longName, std::uint16_t version,
                    bool folder) {
    QByteArray d;
    d.append(char(folder ? 0x31 : 0x32));
    d.append('\0');
    PutU32(d, 1234);       // size
    PutU32(d, 0x5A215A21); // modification time
    PutU16(d, folder ? 0x10 : 0x20);
    d += Z(shortName);
    if (d.size() % 2) d.append('\0');
    if (!longName.isEmpty()) {
        const qsizetype start = d.size();
        QByteArray e;
        PutU16(e, 0); // size, set below
        PutU16(e, version);
        PutU32(e, 0xBEEF0004);
        const int nameAt = version >= 9 ? 46 : version == 8 ? 42 : version == 7 ? 38 : 20;
        e.resize(nameAt, '\0');
        e += UZ(longName);
        PutU16(e, std::uint16_t(start + 2)); // where the block starts in the item
        SetU16(e, 0, std::uint16_t(e.size()));
        d += e;
    }
    return Item(d);
}

QByteArray EnvironmentBlock(const QByteArray& ansi, const QString& unicode,
                            std::uint32_t signature = 0xA0000001) {
    QByteArray b;
    PutU32(b, 0x314);
    PutU32(b, signature);
    QByteArray a = ansi;
    a.resize(260, '\0');
    QByteArray u = UZ(unicode);
    u.resize(520, '\0');
    return b + a + u;
}

// A shell link put together from its parts; the flags follow from what is given.
struct LinkSpec {
    std::uint32_t extraFlags = 0;
    bool unicodeStrings = true;
    QList<QByteArray> items; // ID list items; with any, the list is written with its terminator
    QByteArray linkInfo;
    QString name, relativePath, workingDir, arguments, iconLocation;
    QByteArray extra; // extra data blocks, the terminal block is added

    // Where the extra data starts, set by Bytes().
    mutable qsizetype extraAt = 0;

    QByteArray Bytes() const {
        std::uint32_t flags = extraFlags;
        if (!items.isEmpty()) flags |= ShellLink::HasLinkTargetIDList;
        if (!linkInfo.isEmpty()) flags |= ShellLink::HasLinkInfo;
        if (unicodeStrings) flags |= ShellLink::IsUnicode;
        const std::pair<ShellLink::Flag, const QString*> strings[] = {
            {ShellLink::HasName, &name},
            {ShellLink::HasRelativePath, &relativePath},
            {ShellLink::HasWorkingDir, &workingDir},
            {ShellLink::HasArguments, &arguments},
            {ShellLink::HasIconLocation, &iconLocation},
        };
        for (const auto& [flag, text] : strings)
            if (!text->isEmpty()) flags |= flag;
        QByteArray b;
        PutU32(b, 0x4C);
        b += QByteArray::fromHex("0114020000000000c000000000000046");
        PutU32(b, flags);
        PutU32(b, 0x20); // attributes
        b += QByteArray(24, '\x11');
        PutU32(b, 4096); // file size
        PutU32(b, 3);    // icon index
        PutU32(b, 1);    // show normal
        PutU16(b, 0x0641);
        b += QByteArray(10, '\0');
        if (!items.isEmpty()) {
            QByteArray list;
            for (const QByteArray& i : items)
                list += i;
            PutU16(list, 0);
            PutU16(b, std::uint16_t(list.size()));
            b += list;
        }
        b += linkInfo;
        for (const auto& [flag, text] : strings) {
            if (text->isEmpty()) continue;
            PutU16(b, std::uint16_t(text->size()));
            if (unicodeStrings) {
                for (const QChar c : *text)
                    PutU16(b, c.unicode());
            } else {
                b += text->toLatin1();
            }
        }
        extraAt = b.size();
        b += extra;
        PutU32(b, 0);
        return b;
    }
};

QString TargetOf(const QByteArray& bytes, ShellLink::TargetSource* source = nullptr) {
    const auto link = ShellLink::Parse(bytes);
    return link ? link->Target(source) : QStringLiteral("<not a link>");
}

} // namespace

TEST(ShellLink, ALocalPathIsBasePathAndSuffix) {
    LinkSpec s;
    s.items = {MyComputerItem(), DriveItem("C:\\"), FileItem("test", {}, 0, true),
               FileItem("a.txt", {}, 0, false)};
    LinkInfoSpec li;
    li.base = "C:\\test\\a.txt";
    s.linkInfo = MakeLinkInfo(li);
    s.relativePath = QStringLiteral(".\\a.txt");
    s.workingDir = QStringLiteral("C:\\test");
    const auto link = ShellLink::Parse(s.Bytes());
    ASSERT_TRUE(link);
    ShellLink::TargetSource source{};
    EXPECT_EQ(link->Target(&source), QStringLiteral("C:\\test\\a.txt"));
    EXPECT_EQ(source, ShellLink::TargetSource::LocalPath);
    EXPECT_EQ(link->localBasePath, QStringLiteral("C:\\test\\a.txt"));
    EXPECT_EQ(link->commonPathSuffix, QString());
    EXPECT_TRUE(link->hasVolumeId);
    EXPECT_EQ(link->driveType, 3u);
    EXPECT_EQ(link->driveSerialNumber, 0x1234ABCDu);
    EXPECT_EQ(link->volumeLabel, QStringLiteral("DATA"));
    EXPECT_EQ(link->relativePath, QStringLiteral(".\\a.txt"));
    EXPECT_EQ(link->workingDir, QStringLiteral("C:\\test"));
    EXPECT_EQ(link->fileAttributes, 0x20u);
    EXPECT_EQ(link->fileSize, 4096u);
    EXPECT_EQ(link->iconIndex, 3);
    EXPECT_EQ(link->showCommand, 1u);
    EXPECT_EQ(link->hotKey, 0x0641);
    EXPECT_EQ(link->creationTime, 0x1111111111111111u);
    EXPECT_EQ(link->idListItems.size(), 4u);
    EXPECT_EQ(link->idListPath, QStringLiteral("C:\\test\\a.txt"));
}

TEST(ShellLink, BaseAndSuffixGetOneSeparator) {
    LinkInfoSpec li;
    li.base = "C:\\Users\\";
    li.suffix = "me\\Recent";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("C:\\Users\\me\\Recent"));
    li.base = "C:\\Users";
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("C:\\Users\\me\\Recent"));
    // A drive root stays a root.
    li.base = "D:\\";
    li.suffix = "";
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("D:\\"));
}

TEST(ShellLink, UnicodeLinkInfoStringsWinOverTheirEightBitForms) {
    LinkInfoSpec li;
    li.unicode = true;
    li.base = "C:\\Users\\?\\";
    li.suffix = "??.txt";
    li.unicodeBase = U("C:\\Users\\Дима\\");
    li.unicodeSuffix = U("测试 1.txt");
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), U("C:\\Users\\Дима\\测试 1.txt"));
    // An empty Unicode base falls back to the 8-bit one; a suffix of characters beyond the BMP stays whole.
    li.unicodeBase.clear();
    li.base = "C:\\x\\";
    li.unicodeSuffix = U("test❤️and🍰.txt");
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), U("C:\\x\\test❤️and🍰.txt"));
}

TEST(ShellLink, ANetworkOnlyLinkIsShareAndSuffix) {
    LinkInfoSpec li;
    li.netName = "\\\\server\\share";
    li.suffix = "dir\\file.pdf";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    s.workingDir = QStringLiteral("\\\\server\\share\\dir");
    const auto link = ShellLink::Parse(s.Bytes());
    ASSERT_TRUE(link);
    ShellLink::TargetSource source{};
    EXPECT_EQ(link->Target(&source), QStringLiteral("\\\\server\\share\\dir\\file.pdf"));
    EXPECT_EQ(source, ShellLink::TargetSource::NetworkPath);
    EXPECT_TRUE(link->hasNetworkLink);
    EXPECT_EQ(link->networkFlags, unsigned(ShellLink::ValidNetType));
    EXPECT_EQ(link->networkProviderType, 0x00020000u);
    EXPECT_EQ(link->deviceName, QString());
    EXPECT_FALSE(link->hasVolumeId);
    // A share without a suffix is the share itself.
    li.suffix = "";
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("\\\\server\\share"));
}

TEST(ShellLink, AMappedDriveGivesTheDriveLetterForm) {
    LinkInfoSpec li;
    li.netName = "\\\\server\\share";
    li.deviceName = "Z:";
    li.suffix = "dir\\file.pdf";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("Z:\\dir\\file.pdf"));
    // The Unicode names of the network link, when it has them.
    li.unicodeNet = true;
    li.unicodeNetName = U("\\\\сервер\\share");
    li.unicodeDeviceName = QStringLiteral("Y:");
    li.unicode = true;
    li.unicodeSuffix = U("папка\\файл.txt");
    s.linkInfo = MakeLinkInfo(li);
    const auto link = ShellLink::Parse(s.Bytes());
    ASSERT_TRUE(link);
    EXPECT_EQ(link->netName, U("\\\\сервер\\share"));
    EXPECT_EQ(link->Target(), U("Y:\\папка\\файл.txt"));
}

TEST(ShellLink, ALocalPathComesBeforeTheNetworkForm) {
    LinkInfoSpec li;
    li.base = "C:\\Users\\";
    li.netName = "\\\\PC\\Users";
    li.suffix = "me\\f.txt";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("C:\\Users\\me\\f.txt"));
}

TEST(ShellLink, WithoutLinkInfoTheEnvironmentBlockThenTheIdListThenTheRelativePath) {
    LinkSpec s;
    s.relativePath = QStringLiteral("..\\docs\\a.txt");
    ShellLink::TargetSource source{};
    EXPECT_EQ(TargetOf(s.Bytes(), &source), QStringLiteral("..\\docs\\a.txt"));
    EXPECT_EQ(source, ShellLink::TargetSource::RelativePath);

    s.items = {MyComputerItem(), DriveItem("D:\\"),
               FileItem("DOCUME~1", QStringLiteral("Documents and more"), 8, true),
               FileItem("LONGNA~1.TXT", QStringLiteral("Long name.txt"), 9, false)};
    EXPECT_EQ(TargetOf(s.Bytes(), &source), QStringLiteral("D:\\Documents and more\\Long name.txt"));
    EXPECT_EQ(source, ShellLink::TargetSource::IDList);

    s.extra = EnvironmentBlock("%windir%\\x.exe", QStringLiteral("%windir%\\system32\\x.exe"));
    EXPECT_EQ(TargetOf(s.Bytes(), &source), QStringLiteral("%windir%\\system32\\x.exe"));
    EXPECT_EQ(source, ShellLink::TargetSource::Environment);
    // The 8-bit target when the Unicode one is empty.
    s.extra = EnvironmentBlock("%windir%\\x.exe", QString());
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("%windir%\\x.exe"));
}

TEST(ShellLink, TheIdListPathTakesLongNamesOfEveryVersionAndRefusesOtherItems) {
    for (const std::uint16_t version : {3, 7, 8, 9}) {
        LinkSpec s;
        s.items = {MyComputerItem(), DriveItem("C:\\"),
                   FileItem("PROGRA~1", QStringLiteral("Program Files"), version, true),
                   FileItem("APP.EXE", {}, 0, false)};
        EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("C:\\Program Files\\APP.EXE")) << version;
    }
    // A drive item may come first; a folder of the shell (any other root) gives no path.
    LinkSpec s;
    s.items = {DriveItem("E:\\"), FileItem("X.TXT", {}, 0, false)};
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("E:\\X.TXT"));
    QByteArray other = QByteArray::fromHex("1f50e04fd020ea3a6910a2d808002b30309d");
    other[5] = '\x77';
    s.items = {Item(other), DriveItem("C:\\"), FileItem("X.TXT", {}, 0, false)};
    EXPECT_EQ(TargetOf(s.Bytes()), QString());
    s.items = {MyComputerItem(), DriveItem("C:\\"), Item(QByteArray("\x74\x00\x00\x00junkjunkjunkjunk", 20))};
    EXPECT_EQ(TargetOf(s.Bytes()), QString());
    // A drive item that is not a drive.
    s.items = {MyComputerItem(), DriveItem("\\"), FileItem("X.TXT", {}, 0, false)};
    EXPECT_EQ(TargetOf(s.Bytes()), QString());
}

TEST(ShellLink, PreferEnvironmentPathPutsTheBlockFirst) {
    LinkInfoSpec li;
    li.base = "C:\\Windows\\notepad.exe";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    s.extra = EnvironmentBlock("", QStringLiteral("%SystemRoot%\\notepad.exe"));
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("C:\\Windows\\notepad.exe"));
    s.extraFlags = ShellLink::PreferEnvironmentPath;
    EXPECT_EQ(TargetOf(s.Bytes()), QStringLiteral("%SystemRoot%\\notepad.exe"));
}

TEST(ShellLink, ForceNoLinkInfoSkipsTheStructure) {
    LinkInfoSpec li;
    li.base = "C:\\old.txt";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    s.relativePath = QStringLiteral(".\\new.txt");
    s.extraFlags = ShellLink::ForceNoLinkInfo;
    const auto link = ShellLink::Parse(s.Bytes());
    ASSERT_TRUE(link);
    EXPECT_FALSE(link->hasLinkInfo);
    EXPECT_EQ(link->Target(), QStringLiteral(".\\new.txt"));
}

TEST(ShellLink, AnAdvertisedShortcutHasNoFileTarget) {
    LinkSpec s;
    s.extraFlags = ShellLink::HasDarwinID;
    s.items = {MyComputerItem(), DriveItem("C:\\"), FileItem("WINDOWS", {}, 0, true),
               FileItem("ICON.ICO", {}, 0, false)};
    s.relativePath = QStringLiteral("..\\WINDOWS\\ICON.ICO");
    s.extra = EnvironmentBlock("", QStringLiteral("[product]feature>component"), 0xA0000006);
    const auto link = ShellLink::Parse(s.Bytes());
    ASSERT_TRUE(link);
    EXPECT_EQ(link->darwinId, QStringLiteral("[product]feature>component"));
    EXPECT_EQ(link->Target(), QString());
}

TEST(ShellLink, StringDataInBothEncodings) {
    LinkSpec s;
    s.name = U("Beschreibung äöü");
    s.relativePath = QStringLiteral(".\\a.exe");
    s.workingDir = QStringLiteral("C:\\w");
    s.arguments = QStringLiteral("-x \"y z\"");
    s.iconLocation = QStringLiteral("%SystemRoot%\\i.dll");
    for (const bool unicode : {true, false}) {
        s.unicodeStrings = unicode;
        const auto link = ShellLink::Parse(s.Bytes());
        ASSERT_TRUE(link);
        EXPECT_EQ(link->name, U("Beschreibung äöü")) << unicode;
        EXPECT_EQ(link->relativePath, QStringLiteral(".\\a.exe"));
        EXPECT_EQ(link->workingDir, QStringLiteral("C:\\w"));
        EXPECT_EQ(link->arguments, QStringLiteral("-x \"y z\""));
        EXPECT_EQ(link->iconLocation, QStringLiteral("%SystemRoot%\\i.dll"));
    }
}

TEST(ShellLink, EightBitPathsAreWindows1252OrUtf8) {
    LinkInfoSpec li;
    li.base = "G:\\Temp\\\xE9"
              "cole\x80.txt";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), U("G:\\Temp\\école€.txt"));
    li.base = "D:\\\xC3\xB6\xC3\xB6.txt"; // UTF-8 written by a tool other than Windows
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), U("D:\\öö.txt"));
}

TEST(ShellLink, UnicodeStringsOfTheSameLinkRepairAnotherCodePage) {
    // Windows-1251 bytes of "Дима" read as Windows-1252 give "Äèìà"; the Unicode working folder and
    // relative path of the link name the right letters.
    LinkInfoSpec li;
    li.base = "C:\\Users\\";
    li.suffix = "\xC4\xE8\xEC\xE0\\Desktop\\\xF4\xE9\xEB.txt";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(TargetOf(s.Bytes()), U("C:\\Users\\Äèìà\\Desktop\\ôéë.txt"));
    s.workingDir = U("C:\\Users\\Дима\\Desktop");
    EXPECT_EQ(TargetOf(s.Bytes()), U("C:\\Users\\Дима\\Desktop\\ôéë.txt"));
    s.relativePath = U(".\\фйл.txt");
    EXPECT_EQ(TargetOf(s.Bytes()), U("C:\\Users\\Дима\\Desktop\\фйл.txt"));
    // A Unicode string that names another place changes nothing.
    s.workingDir = U("C:\\Temp\\Дима\\Desktop");
    s.relativePath = U(".\\другой.txt");
    EXPECT_EQ(TargetOf(s.Bytes()), U("C:\\Users\\Äèìà\\Desktop\\ôéë.txt"));
}

TEST(ShellLink, HeaderChecks) {
    LinkInfoSpec li;
    li.base = "C:\\a.txt";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    const QByteArray good = s.Bytes();
    ASSERT_TRUE(ShellLink::Parse(good));
    QByteArray bad = good;
    bad[0] = '\x4D';
    EXPECT_FALSE(ShellLink::Parse(bad));
    bad = good;
    bad[8] = '\xA0';
    EXPECT_FALSE(ShellLink::Parse(bad));
    EXPECT_FALSE(ShellLink::Parse(QByteArray()));
    EXPECT_FALSE(ShellLink::Parse(QByteArray("[InternetShortcut]\r\nURL=http://a/\r\n")));
    // The header alone with no flags is a link without a target.
    const auto bare = ShellLink::Parse(good.first(0x4C).replace(0x14, 4, QByteArray(4, '\0')));
    ASSERT_TRUE(bare);
    EXPECT_EQ(bare->Target(), QString());
}

TEST(ShellLink, EveryTruncationIsReadOrRefusedWithoutHarm) {
    LinkInfoSpec li;
    li.unicode = true;
    li.base = "C:\\Users\\";
    li.suffix = "me\\f.txt";
    li.unicodeBase = QStringLiteral("C:\\Users\\");
    li.unicodeSuffix = QStringLiteral("me\\f.txt");
    li.netName = "\\\\PC\\Users";
    LinkSpec s;
    s.items = {MyComputerItem(), DriveItem("C:\\"), FileItem("Users", QStringLiteral("Users"), 9, true)};
    s.linkInfo = MakeLinkInfo(li);
    s.name = QStringLiteral("d");
    s.relativePath = QStringLiteral(".\\f.txt");
    s.workingDir = QStringLiteral("C:\\Users\\me");
    s.arguments = QStringLiteral("a");
    s.iconLocation = QStringLiteral("i");
    s.extra = EnvironmentBlock("x", QStringLiteral("x"));
    const QByteArray whole = s.Bytes();
    ASSERT_EQ(TargetOf(whole), QStringLiteral("C:\\Users\\me\\f.txt"));
    for (qsizetype n = 0; n < whole.size(); ++n) {
        // A copy of exactly n bytes, so that a read past the end shows under the address sanitizer.
        const QByteArray cut(whole.constData(), n);
        const auto link = ShellLink::Parse(cut);
        if (n < s.extraAt) {
            EXPECT_FALSE(link) << n;
        } else {
            ASSERT_TRUE(link) << n;
            EXPECT_EQ(link->Target(), QStringLiteral("C:\\Users\\me\\f.txt")) << n;
            EXPECT_EQ(link->environmentTarget.isEmpty(), n < s.extraAt + 0x314) << n;
        }
    }
}

TEST(ShellLink, LyingSizeFieldsAreNotTrusted) {
    LinkInfoSpec li;
    li.base = "C:\\a.txt";
    li.netName = "\\\\PC\\C";
    li.suffix = "";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    s.relativePath = QStringLiteral(".\\a.txt");
    s.extra = EnvironmentBlock("", QStringLiteral("%x%\\a.txt"));
    const QByteArray good = s.Bytes();
    constexpr qsizetype info = 0x4C;
    ASSERT_EQ(TargetOf(good), QStringLiteral("C:\\a.txt"));
    auto with = [&](qsizetype at, std::uint32_t value) {
        QByteArray b = good;
        SetU32(b, at, value);
        return b;
    };
    // LinkInfoSize beyond the file, or below its smallest header: not a readable link.
    EXPECT_FALSE(ShellLink::Parse(with(info, 0xFFFFFFFF)));
    EXPECT_FALSE(ShellLink::Parse(with(info, 0x7FFFFFFF)));
    EXPECT_FALSE(ShellLink::Parse(with(info, 4)));
    // LinkInfoHeaderSize larger than the structure: the structure is skipped, the link is still read.
    {
        const auto link = ShellLink::Parse(with(info + 4, 0xFFFF));
        ASSERT_TRUE(link);
        EXPECT_FALSE(link->hasLinkInfo);
        EXPECT_EQ(link->Target(), QStringLiteral("%x%\\a.txt"));
    }
    // Offsets out of the structure leave their field empty.
    EXPECT_EQ(TargetOf(with(info + 16, 0xFFFFFFF0)), QStringLiteral("\\\\PC\\C"));
    EXPECT_EQ(TargetOf(with(info + 16, std::uint32_t(s.linkInfo.size()))), QStringLiteral("\\\\PC\\C"));
    {
        // The VolumeID and network link sizes beyond the structure.
        const std::uint32_t volume = 0x1C;
        const auto link = ShellLink::Parse(with(info + volume, 0x10000));
        ASSERT_TRUE(link);
        EXPECT_FALSE(link->hasVolumeId);
        EXPECT_EQ(link->Target(), QStringLiteral("C:\\a.txt"));
        QByteArray b = good;
        const std::uint32_t net = GetU32(good, info + 20);
        SetU32(b, info + net, 0xFFFFFF00);
        const auto link2 = ShellLink::Parse(b);
        ASSERT_TRUE(link2);
        EXPECT_FALSE(link2->hasNetworkLink);
        // A network link cut to its header, with a name offset beyond it.
        SetU32(b, info + net, 0x14);
        SetU32(b, info + net + 8, 0xFFFFFFFF);
        const auto link3 = ShellLink::Parse(b);
        ASSERT_TRUE(link3);
        EXPECT_EQ(link3->netName, QString());
    }
    // A string count beyond the file.
    const qsizetype strings = info + s.linkInfo.size();
    {
        QByteArray b = good;
        SetU16(b, strings, 0xFFFF);
        EXPECT_FALSE(ShellLink::Parse(b));
    }
    // An extra block beyond the file ends the extra data; one of the wrong size is not read.
    {
        const auto link = ShellLink::Parse(with(s.extraAt, 0xFFFFFFFF));
        ASSERT_TRUE(link);
        EXPECT_TRUE(link->environmentTarget.isEmpty());
        EXPECT_EQ(link->Target(), QStringLiteral("C:\\a.txt"));
        QByteArray b = good;
        b.insert(s.extraAt + 0x314, 4, '\0');
        SetU32(b, s.extraAt, 0x318);
        const auto link2 = ShellLink::Parse(b);
        ASSERT_TRUE(link2);
        EXPECT_TRUE(link2->environmentTarget.isEmpty());
        ASSERT_EQ(link2->extraBlockSignatures.size(), 1u);
        EXPECT_EQ(link2->extraBlockSignatures[0], 0xA0000001u);
        // Sizes from 4 to 7 hold no signature and end the blocks too.
        EXPECT_TRUE(ShellLink::Parse(with(s.extraAt, 5))->extraBlockSignatures.empty());
    }
    // An ID list size beyond the file, and an item size beyond its list.
    {
        LinkSpec t = s;
        t.items = {MyComputerItem(), DriveItem("C:\\"), FileItem("A.TXT", {}, 0, false)};
        t.linkInfo.clear();
        t.extra.clear();
        const QByteArray b = t.Bytes();
        ASSERT_EQ(TargetOf(b), QStringLiteral("C:\\A.TXT"));
        QByteArray bad = b;
        SetU16(bad, 0x4C, 0xFFFF);
        EXPECT_FALSE(ShellLink::Parse(bad));
        bad = b;
        SetU16(bad, 0x4C + 2 + MyComputerItem().size(), 0x7FFF);
        const auto link = ShellLink::Parse(bad);
        ASSERT_TRUE(link);
        EXPECT_EQ(link->idListPath, QString());
        // The relative path then gives the target.
        EXPECT_EQ(link->Target(), QStringLiteral(".\\a.txt"));
        // An extension block whose size runs past its item: the short name is used.
        LinkSpec u = t;
        QByteArray item = FileItem("LONG~1.TXT", QStringLiteral("Long.txt"), 9, false);
        const qsizetype ext = item.indexOf(QByteArray("\x04\x00\xEF\xBE", 4)) - 4;
        SetU16(item, ext, 0x7000);
        u.items = {MyComputerItem(), DriveItem("C:\\"), item};
        EXPECT_EQ(TargetOf(u.Bytes()), QStringLiteral("C:\\LONG~1.TXT"));
    }
}

TEST(ShellLink, ResolvingAFileResolvesARelativeTargetFromTheLinksFolder) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("links")));
    auto write = [&](const QString& name, const QByteArray& bytes) {
        const QString path = QDir(dir.path()).filePath(name);
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        return path;
    };
    LinkSpec s;
    s.relativePath = QStringLiteral("..\\docs\\a b.txt");
    EXPECT_EQ(ResolveLinkTarget(write(QStringLiteral("links/rel.lnk"), s.Bytes())),
              QDir(dir.path()).filePath(QStringLiteral("docs/a b.txt")));
    // Climbing above the root stays at the root.
    LinkSpec deep;
    deep.relativePath = QStringLiteral(
        "..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\x\\y.txt");
    EXPECT_EQ(ResolveLinkTarget(write(QStringLiteral("links/deep.lnk"), deep.Bytes())),
              QStringLiteral("/x/y.txt"));
    deep.relativePath =
        QStringLiteral("..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..\\..");
    EXPECT_EQ(ResolveLinkTarget(write(QStringLiteral("links/root.lnk"), deep.Bytes())), QStringLiteral("/"));
    LinkInfoSpec li;
    li.base = "C:\\x\\y.txt";
    s.linkInfo = MakeLinkInfo(li);
    EXPECT_EQ(ResolveLinkTarget(write(QStringLiteral("abs.LNK"), s.Bytes())), QStringLiteral("C:\\x\\y.txt"));
    EXPECT_EQ(ResolveLinkTarget(write(QStringLiteral("cut.lnk"), s.Bytes().first(0x50))), QString());
    EXPECT_EQ(ResolveLinkTarget(write(QStringLiteral("empty.lnk"), QByteArray())), QString());
    // A link without any target.
    LinkSpec none;
    EXPECT_EQ(ResolveLinkTarget(write(QStringLiteral("none.lnk"), none.Bytes())), QString());
}

TEST(ShellLink, AddingALinkKeepsItsNameAndTakesItsTarget) {
    TestWorkspace t;
    LinkInfoSpec li;
    li.base = "C:\\Program Files\\App\\app.exe";
    LinkSpec s;
    s.linkInfo = MakeLinkInfo(li);
    const QString path = QDir(t.programDir()).filePath(QStringLiteral("App.lnk"));
    {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(s.Bytes());
    }
    AddShortcut(*t.ws, path, t.ws->picBack(0));
    ASSERT_EQ(t.ws->LinkCount, 1);
    EXPECT_EQ(t.ws->Links[0].LinkType, 2.0f);
    EXPECT_EQ(t.ws->Links[0].LinkPath, QStringLiteral("C:\\Program Files\\App\\app.exe"));
    EXPECT_EQ(t.ws->Link(0).Caption.get(), QStringLiteral("App.lnk"));
    // One that cannot be read stays a shortcut to the link file.
    const QString broken = QDir(t.programDir()).filePath(QStringLiteral("Broken.lnk"));
    {
        QFile f(broken);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(s.Bytes().first(100));
    }
    AddShortcut(*t.ws, broken, t.ws->picBack(0));
    ASSERT_EQ(t.ws->LinkCount, 2);
    EXPECT_EQ(t.ws->Links[1].LinkPath, broken);
}

// ---- The shared corpus ----

namespace {

QString CorpusDir() {
    const QString shared = qEnvironmentVariable("PERCHDOCK_SHARED");
    if (shared.isEmpty()) return {};
    const QString dir = QDir(shared).filePath(QStringLiteral("corpus/lnk"));
    return QDir(dir).exists() ? dir : QString();
}

QByteArray ReadAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

constexpr const char* kNotALink = "<not a link>";

// The target our rule gives for every link of the corpus. Where the corpus' source expects something
// else, the comment says what and why we differ.
const std::map<std::string, const char*>& CorpusTargets() {
    static const std::map<std::string, const char*> targets = {
        {"LnkParse3-broken_link_info.lnk", "C:\\Program Files\\xt\\xt.exe"}, // from the ID list (long names)
        {"LnkParse3-console_properties_block.lnk",
         "C:\\Windows\\SysWOW64\\WindowsPowerShell\\v1.0\\powershell.exe"},
        {"LnkParse3-darwin_block.lnk", ""}, // advertised: its ID list leads to an icon
        {"LnkParse3-decoding_error3.lnk",
         "C:\\Users\\Дима\\Desktop\\PixelMod\\Mod for Pixelmon\\Error Fix.bat"},
        {"LnkParse3-microsoft_example.lnk", "C:\\test\\a.txt"},
        {"LnkParse3-network_info.lnk",
         "Z:\\A - LM METAL LIFT\\01.OBCHOD - BROŽURY - Prodejní a technické informace o produktech\\ETN\\"
         "ETN-Katalog-ENG\\Katalog ETN 10_2017\\Lift-programme\\ETN-lift programme 2017.pdf"},
        {"LnkParse3-sample16.lnk", "C:\\Users\\Asus-PC\\AppData\\Roaming\\Microsoft\\Windows\\Recent"},
        {"libLNK-WINDOWS.lnk", "C:\\WINDOWS"},
        {"libLNK-testWin7CdRom.lnk", "E:\\Specials\\IMG_5187_LR5.jpg"},
        {"libLNK-testWin7MappedDrive.lnk", "Z:\\STANDARD\\9000\\E\\9001E.PDF"},
        // Its source calls "HOME.PDF" the target and this the network path; a network-only link's target
        // is the whole network path.
        {"libLNK-testWin7NetworkPath.lnk", "\\\\FILSRV01\\ISO\\HOME.PDF"},
        {"libLNK-testWin7SpaceFolder.lnk", "G:\\Temp\\foo bar\\History.txt"},
        {"libLNK-testWin7SpecialCharactersCcedil.lnk", "G:\\Temp\\français.txt"},
        {"libLNK-testWin7SpecialCharactersEacute.lnk", "G:\\Temp\\école.txt"},
        {"libLNK-testWinXpArguments.lnk", "C:\\Program Files\\PDFCreator\\History.txt"},
        {"libLNK-testWinXpLongFilename.lnk",
         "M:\\thisisanextralongfoldername\\thisisasuperhugelongfilename\\thisisasuperlongfilename.txt"},
        {"libLNK-testWinXpSystemIni.lnk", "C:\\WINDOWS\\system.ini"},
        {"libLNK-testWinXpUsbDrive.lnk", "G:\\usbdrive.txt"},
        {"liblnk-file_header.1.lnk", kNotALink},       // the flags announce structures that are missing
        {"liblnk-file_header.error.1.lnk", kNotALink}, // header size 0x4D
        {"liblnk-file_header.error.2.lnk", kNotALink}, // class identifier damaged
        {"lnk_parser-WIN10-1607_14393-manual_unicode.lnk", "C:\\Users\\u0041\\Desktop\\test\\تجربة.txt"},
        {"lnk_parser-WIN10-1903_18362-chinese_test1.txt.lnk", "C:\\Users\\u0041\\Desktop\\Test\\测试 1.txt"},
        {"lnk_parser-WIN7-6.1_7601-network_share_unicode.lnk", "\\\\127.0.0.1\\TEST\\تجربة.txt"},
        {"lnk_parser-WS19-10.0_1809-Suessspeisen_mit_Aepfeln.lnk",
         "C:\\Users\\jasa\\Desktop\\Süßspeisen mit Äpfeln.docx"},
        {"lnk_parser-other-non_unicode_strings.lnk", "E:\\Age Of Empires II\\Age2_X1\\age2_x1.Exe"},
        {"parselnk-outlook_express.lnk", "C:\\Program Files\\Outlook Express\\msimn.exe"},
        {"plaso-NeroInfoTool.lnk", "C:\\Program Files (x86)\\Nero\\Nero 9\\Nero InfoTool\\InfoTool.exe"},
        {"plaso-unpaired_surrogate.lnk", nullptr}, // checked on its own below
        {"pylnk3-desktop.lnk", "C:\\Users\\heznik\\Desktop"},
        {"pylnk3-diacritic_symbols.lnk", "D:\\ööö\\äöüàéèíïóòúü.txt"},
        // Its source builds "C:" from the ID list; the link information holds the root "C:\".
        {"pylnk3-local_disk.lnk", "C:\\"},
        {"pylnk3-local_emoji.lnk", "C:\\Users\\Public\\Downloads\\test❤️and🍰.txt"},
        // An ID list under a drive item "\" that names no drive, and an unknown extra block: no target.
        {"pylnk3-local_extra_0xa2000001.lnk", ""},
        {"pylnk3-local_file.lnk", "C:\\Windows\\explorer.exe"},
        {"pylnk3-local_folder.lnk", "C:\\Users\\stray\\Desktop\\New folder"},
        {"pylnk3-mounted_folder1_file1.lnk", "Z:\\Downloads\\folder1\\file1.txt"},
        {"pylnk3-net_folder1_file1.lnk", "\\\\192.168.138.2\\STORAGE\\Downloads\\folder1\\file1.txt"},
        // Its source gives the Downloads known folder's identifier from the ID list; the link information
        // holds the path.
        {"pylnk3-recent1.lnk", "C:\\Users\\heznik\\Downloads\\2020M09_01_contract.pdf"},
        {"pylnk3-send_to_fax.lnk", "%windir%\\system32\\WFS.exe"},
        {"pylnk3-uwp_calc.lnk", ""}, // an app of the Windows store: no file
    };
    return targets;
}

} // namespace

TEST(ShellLinkCorpus, EveryLinkGivesItsTarget) {
    const QString dir = CorpusDir();
    if (dir.isEmpty())
        GTEST_SKIP() << "PERCHDOCK_SHARED does not name the shared corpus; corpus links not read";
    for (const auto& [file, expected] : CorpusTargets()) {
        const QString path = QDir(dir).filePath(QString::fromStdString(file));
        if (!QFile::exists(path)) {
            ADD_FAILURE() << "missing from the corpus: " << file;
            continue;
        }
        if (!expected) continue;
        EXPECT_EQ(TargetOf(ReadAll(path)), QString::fromUtf8(expected)) << file;
        const QString resolved = ResolveLinkTarget(path);
        EXPECT_EQ(resolved, expected == std::string(kNotALink) ? QString() : QString::fromUtf8(expected))
            << file;
    }
}

TEST(ShellLinkCorpus, EveryFileAndEveryPrefixOfItIsReadWithoutHarm) {
    const QString dir = CorpusDir();
    if (dir.isEmpty())
        GTEST_SKIP() << "PERCHDOCK_SHARED does not name the shared corpus; corpus links not read";
    const QStringList files = QDir(dir).entryList({QStringLiteral("*.lnk")}, QDir::Files);
    EXPECT_GE(files.size(), 41);
    for (const QString& name : files) {
        const QByteArray whole = ReadAll(QDir(dir).filePath(name));
        const auto link = ShellLink::Parse(whole);
        if (CorpusTargets().count(name.toStdString()) == 0)
            ADD_FAILURE() << "no expectation for " << name.toStdString();
        for (qsizetype n = 0; n < whole.size(); ++n) {
            const QByteArray cut(whole.constData(), n);
            const auto part = ShellLink::Parse(cut);
            if (part) (void)part->Target();
        }
        (void)link;
    }
}

TEST(ShellLinkCorpus, FieldsOfChosenLinks) {
    const QString dir = CorpusDir();
    if (dir.isEmpty())
        GTEST_SKIP() << "PERCHDOCK_SHARED does not name the shared corpus; corpus links not read";
    auto read = [&](const char* name) {
        return ShellLink::Parse(ReadAll(QDir(dir).filePath(QString::fromLatin1(name))));
    };

    const auto args = read("libLNK-testWinXpArguments.lnk");
    ASSERT_TRUE(args);
    EXPECT_EQ(args->arguments, QStringLiteral("\"this is the arguments\""));
    EXPECT_EQ(args->name, QStringLiteral("this is my comment"));
    EXPECT_EQ(args->iconLocation, QStringLiteral("%SystemRoot%\\system32\\SHELL32.dll"));
    EXPECT_EQ(args->iconIndex, 219);

    const auto ini = read("libLNK-testWinXpSystemIni.lnk");
    ASSERT_TRUE(ini);
    EXPECT_EQ(ini->workingDir, QStringLiteral("C:\\WINDOWS"));
    EXPECT_TRUE(ini->arguments.isEmpty() && ini->name.isEmpty() && ini->iconLocation.isEmpty());

    const auto usb = read("libLNK-testWinXpUsbDrive.lnk");
    ASSERT_TRUE(usb);
    EXPECT_EQ(usb->workingDir, QStringLiteral("G:\\"));
    EXPECT_FALSE(usb->hasNetworkLink);

    const auto longName = read("libLNK-testWinXpLongFilename.lnk");
    ASSERT_TRUE(longName);
    EXPECT_EQ(longName->netName, QStringLiteral("\\\\d49ads02\\users$\\BEAUCHAMP.A3"));
    EXPECT_EQ(longName->workingDir,
              QStringLiteral("M:\\thisisanextralongfoldername\\thisisasuperhugelongfilename"));

    const auto network = read("libLNK-testWin7NetworkPath.lnk");
    ASSERT_TRUE(network);
    EXPECT_EQ(network->environmentTarget, QStringLiteral("\\\\filsrv01\\ISO\\HOME.PDF"));

    const auto net = read("pylnk3-net_folder1_file1.lnk");
    ASSERT_TRUE(net);
    EXPECT_EQ(net->environmentTarget.compare(net->Target(), Qt::CaseInsensitive), 0);

    const auto mounted = read("pylnk3-mounted_folder1_file1.lnk");
    ASSERT_TRUE(mounted);
    EXPECT_EQ(mounted->deviceName, QStringLiteral("Z:"));
    EXPECT_EQ(mounted->netName, QStringLiteral("\\\\192.168.138.2\\storage"));

    const auto nero = read("plaso-NeroInfoTool.lnk");
    ASSERT_TRUE(nero);
    EXPECT_EQ(nero->relativePath, QStringLiteral("..\\..\\..\\..\\..\\..\\..\\..\\Program Files "
                                                 "(x86)\\Nero\\Nero 9\\Nero InfoTool\\InfoTool.exe"));
    EXPECT_EQ(nero->workingDir, QStringLiteral("C:\\Program Files (x86)\\Nero\\Nero 9\\Nero InfoTool"));
    EXPECT_EQ(nero->volumeLabel, QStringLiteral("OS"));
    EXPECT_EQ(nero->driveSerialNumber, 0x70ECFA33u);

    const auto fax = read("pylnk3-send_to_fax.lnk");
    ASSERT_TRUE(fax);
    EXPECT_FALSE(fax->hasLinkInfo);
    EXPECT_EQ(fax->arguments, QStringLiteral("/SendTo"));
    EXPECT_EQ(fax->name, QStringLiteral("@%windir%\\system32\\FXSRESM.dll,-121"));

    const auto broken = read("LnkParse3-broken_link_info.lnk");
    ASSERT_TRUE(broken);
    EXPECT_FALSE(broken->hasLinkInfo);
    EXPECT_EQ(broken->relativePath, QStringLiteral("..\\..\\..\\..\\..\\..\\Program Files\\xt\\xt.exe"));
    EXPECT_EQ(broken->workingDir, QStringLiteral("C:\\Program Files\\xt"));

    const auto darwin = read("LnkParse3-darwin_block.lnk");
    ASSERT_TRUE(darwin);
    EXPECT_FALSE(darwin->darwinId.isEmpty());
    EXPECT_EQ(darwin->name, QStringLiteral("This is the shortcut description"));

    const auto console = read("LnkParse3-console_properties_block.lnk");
    ASSERT_TRUE(console);
    EXPECT_EQ(console->environmentTarget,
              QStringLiteral("%SystemRoot%\\syswow64\\WindowsPowerShell\\v1.0\\powershell.exe"));
    EXPECT_EQ(console->workingDir, QStringLiteral("%HOMEDRIVE%%HOMEPATH%"));

    const auto cyrillic = read("LnkParse3-decoding_error3.lnk");
    ASSERT_TRUE(cyrillic);
    EXPECT_EQ(cyrillic->localBasePath, QStringLiteral("C:\\Users\\"));
    EXPECT_EQ(cyrillic->netName, QStringLiteral("\\\\DESKTOP-9AI08QD\\Users"));

    const auto extra = read("pylnk3-local_extra_0xa2000001.lnk");
    ASSERT_TRUE(extra);
    EXPECT_NE(std::find(extra->extraBlockSignatures.begin(), extra->extraBlockSignatures.end(), 0xA2000001u),
              extra->extraBlockSignatures.end());

    const auto ansi = read("lnk_parser-other-non_unicode_strings.lnk");
    ASSERT_TRUE(ansi);
    EXPECT_FALSE(ansi->has(ShellLink::IsUnicode));
    EXPECT_EQ(ansi->arguments, QStringLiteral("normalmouse"));

    // A lone surrogate stays in the text as it is; making a file name of it is the caller's business.
    const auto surrogate = read("plaso-unpaired_surrogate.lnk");
    ASSERT_TRUE(surrogate);
    EXPECT_EQ(surrogate->Target(),
              QStringLiteral("C:\\test\\unicode_U+0000d800_") + QChar(0xD800) + QStringLiteral(".exe"));
    EXPECT_EQ(surrogate->workingDir, QStringLiteral("C:\\test"));
}
