// The Linux launcher against real processes: scripts that write what they were given into a marker
// file, a fake opener and a fake terminal first on PATH, desktop entries, and the error numbers.

#include "platform/qt/Launcher.h"
#include "shortcuts/CommandLine.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <QUrl>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace pd;

void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

constexpr int kStarted = 42;

// Waits (at most 10 s) for a marker file that its writer ends with the line "END"; its lines before.
QStringList WaitForMarker(const QString& path) {
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 10000) {
        QFile f(path);
        if (f.open(QIODevice::ReadOnly)) {
            const QString text = QString::fromUtf8(f.readAll());
            if (text.endsWith(QLatin1String("END\n"))) {
                QStringList lines = text.split(QLatin1Char('\n'));
                lines.removeLast(); // after the last line end
                lines.removeLast(); // END
                return lines;
            }
        }
        QThread::msleep(20);
    }
    return {QStringLiteral("<no marker>")};
}

// A script that writes its working folder and its arguments, each in brackets, into `marker`. It uses
// only shell builtins, so it runs whatever PATH holds.
void WriteScript(const QString& path, const QString& marker) {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("#!/bin/sh\n{ printf '%s\\n' \"$PWD\"; for a in \"$@\"; do printf '[%s]\\n' \"$a\"; done; "
            "printf 'END\\n'; } > '");
    f.write(marker.toUtf8());
    f.write("'\n");
    f.close();
    ASSERT_TRUE(f.setPermissions(f.permissions() | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther));
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

class Launcher : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(tmp.isValid());
        root = QDir(tmp.path());
        ASSERT_TRUE(root.mkpath(QStringLiteral("bin")));
        ASSERT_TRUE(root.mkpath(QStringLiteral("work dir")));
        ASSERT_TRUE(root.mkpath(QStringLiteral("data")));
        ASSERT_TRUE(root.mkpath(QStringLiteral("config")));
        for (const char* name : {"PATH", "XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS",
                                 "TERMINAL", "XDG_CURRENT_DESKTOP"})
            saved.emplace_back(name, qgetenv(name));
        // The fake opener and terminal come first; the rest of PATH stays for the system's programs.
        qputenv("PATH", (bin() + QLatin1Char(':')).toUtf8() + saved[0].second);
        qputenv("XDG_DATA_HOME", path("data").toUtf8());
        qputenv("XDG_DATA_DIRS", path("data/system").toUtf8());
        qputenv("XDG_CONFIG_HOME", path("config").toUtf8());
        qputenv("XDG_CONFIG_DIRS", path("config/system").toUtf8());
        qunsetenv("TERMINAL");
        qunsetenv("XDG_CURRENT_DESKTOP");
    }
    void TearDown() override {
        for (const auto& [name, value] : saved) {
            if (value.isNull()) qunsetenv(name);
            else qputenv(name, value);
        }
    }
    QString path(const char* rel) const { return root.filePath(QString::fromUtf8(rel)); }
    QString bin() const { return path("bin"); }
    // The fake xdg-open, writing what it was given into opened.txt.
    QString InstallOpener() {
        WriteScript(path("bin/xdg-open"), path("opened.txt"));
        return path("opened.txt");
    }

    QTemporaryDir tmp;
    QDir root;
    std::vector<std::pair<const char*, QByteArray>> saved;
};

TEST_F(Launcher, AnExecutableStartsWithItsParametersAndWorkingFolder) {
    WriteScript(path("prog.sh"), path("marker.txt"));
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(LaunchTarget(path("prog.sh"), QStringLiteral("one \"two  words\" \"\" C:\\x"), path("work dir")),
              kStarted);
    // The call does not wait for the program.
    EXPECT_LT(clock.elapsed(), 5000);
    EXPECT_EQ(WaitForMarker(path("marker.txt")),
              (QStringList{path("work dir"), "[one]", "[two  words]", "[]", "[C:\\x]"}));
}

TEST_F(Launcher, ARelativeProgramIsFoundInTheWorkingFolderOrOnPath) {
    WriteScript(path("work dir/local.sh"), path("local.txt"));
    EXPECT_EQ(LaunchTarget(QStringLiteral("local.sh"), QStringLiteral("a"), path("work dir")), kStarted);
    EXPECT_EQ(WaitForMarker(path("local.txt")), (QStringList{path("work dir"), "[a]"}));

    WriteScript(path("bin/pd-test-tool"), path("tool.txt"));
    EXPECT_EQ(LaunchTarget(QStringLiteral("pd-test-tool"), QStringLiteral("b"), path("work dir")), kStarted);
    EXPECT_EQ(WaitForMarker(path("tool.txt")), (QStringList{path("work dir"), "[b]"}));
}

TEST_F(Launcher, AFileAddressIsALocalPath) {
    WriteScript(path("prog.sh"), path("marker.txt"));
    const QString url = QUrl::fromLocalFile(path("prog.sh")).toString();
    EXPECT_EQ(LaunchTarget(url, QStringLiteral("x"), path("work dir")), kStarted);
    EXPECT_EQ(WaitForMarker(path("marker.txt")), (QStringList{path("work dir"), "[x]"}));
}

TEST_F(Launcher, CommandsRunThroughTheShell) {
    const QString out = path("shell out.txt");
    const QString command = QStringLiteral("cd '") + path("work dir") +
                            QStringLiteral("' && { printf '%s|%s\\n' \"$PWD\" \"a  \\\"b\\\"\"; echo END; } > '") +
                            out + QStringLiteral("'");
    EXPECT_EQ(LaunchTarget(QStringLiteral("/bin/sh"), QStringLiteral("-c ") + QuoteCommandWord(command), QString()),
              kStarted);
    EXPECT_EQ(WaitForMarker(out), QStringList{path("work dir") + QStringLiteral("|a  \"b\"")});
    // An empty command: the shell starts and does nothing.
    EXPECT_EQ(LaunchTarget(QStringLiteral("/bin/sh"), QStringLiteral("-c ") + QuoteCommandWord(QString()), QString()),
              kStarted);
}

TEST_F(Launcher, MissingFilesAndFolders) {
    EXPECT_EQ(LaunchTarget(path("missing"), QString(), QString()), 2);
    EXPECT_EQ(LaunchTarget(path("no folder/missing"), QString(), QString()), 3);
    EXPECT_EQ(LaunchTarget(path("no folder/deeper/missing.txt"), QString(), QString()), 3);
    EXPECT_EQ(LaunchTarget(QString(), QString(), QString()), 2);
    EXPECT_EQ(LaunchTarget(QStringLiteral("pd-no-such-program-anywhere"), QString(), QString()), 2);
    // A program whose working folder is gone.
    WriteScript(path("prog.sh"), path("marker.txt"));
    EXPECT_EQ(LaunchTarget(path("prog.sh"), QString(), path("gone")), 3);
}

TEST_F(Launcher, AProgramWithoutThePermissionToRunIsRefused) {
    // An ELF image without the execute bit is neither run nor handed to the opener.
    const QString opened = InstallOpener();
    WriteFile(path("program"), QByteArray("\x7f" "ELF\x02\x01\x01", 7) + QByteArray(64, '\0'));
    EXPECT_EQ(LaunchTarget(path("program"), QString(), QString()), 5);
    EXPECT_FALSE(QFile::exists(opened));
    if (geteuid() != 0) {
        // An unreadable document (root reads everything, so only for others).
        WriteFile(path("secret.txt"), "x");
        QFile(path("secret.txt")).setPermissions(QFileDevice::Permissions());
        EXPECT_EQ(LaunchTarget(path("secret.txt"), QString(), QString()), 5);
    }
}

TEST_F(Launcher, AnExecutableTheSystemCannotRunIsInvalid) {
    // Execute bit, but neither an image nor a script with an interpreter line.
    WriteFile(path("junk"), QByteArray("\x01\x02\x03 not a program"));
    QFile(path("junk")).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_EQ(LaunchTarget(path("junk"), QString(), QString()), 11);
}

TEST_F(Launcher, DocumentsAndFoldersGoToTheOpener) {
    const QString opened = InstallOpener();
    WriteFile(path("notes.txt"), "hello");
    EXPECT_EQ(LaunchTarget(path("notes.txt"), QStringLiteral("ignored"), path("work dir")), kStarted);
    EXPECT_EQ(WaitForMarker(opened), (QStringList{path("work dir"), "[" + path("notes.txt") + "]"}));
    QFile::remove(opened);
    EXPECT_EQ(LaunchTarget(path("work dir"), QString(), QString()), kStarted);
    const QStringList lines = WaitForMarker(opened);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[1], "[" + path("work dir") + "]");
}

TEST_F(Launcher, WebAddressesGoToTheOpener) {
    const QString opened = InstallOpener();
    EXPECT_EQ(LaunchTarget(QStringLiteral("https://example.org/a?b=c"), QString(), QString()), kStarted);
    EXPECT_EQ(WaitForMarker(opened).value(1), QStringLiteral("[https://example.org/a?b=c]"));
    QFile::remove(opened);
    // An address typed without its scheme.
    EXPECT_EQ(LaunchTarget(QStringLiteral("www.example.org"), QString(), QString()), kStarted);
    EXPECT_EQ(WaitForMarker(opened).value(1), QStringLiteral("[http://www.example.org]"));
}

TEST_F(Launcher, WithoutAnOpenerNothingOpens) {
    WriteFile(path("notes.txt"), "hello");
    qputenv("PATH", bin().toUtf8()); // no xdg-open anywhere
    EXPECT_EQ(LaunchTarget(path("notes.txt"), QString(), QString()), 31);
    EXPECT_EQ(LaunchTarget(QStringLiteral("https://example.org/"), QString(), QString()), 31);
}

TEST_F(Launcher, AnUnknownSchemeNeedsAnApplicationThatHandlesIt) {
    const QString opened = InstallOpener();
    EXPECT_EQ(LaunchTarget(QStringLiteral("pdtestscheme:thing"), QString(), QString()), 31);
    EXPECT_FALSE(QFile::exists(opened));
    // A desktop entry that names the scheme makes it known.
    WriteFile(path("data/applications/handler.desktop"),
              "[Desktop Entry]\nType=Application\nName=H\nExec=true %u\nMimeType=text/plain;x-scheme-handler/"
              "pdtestscheme;\n");
    EXPECT_EQ(LaunchTarget(QStringLiteral("pdtestscheme:thing"), QString(), QString()), kStarted);
    EXPECT_EQ(WaitForMarker(opened).value(1), QStringLiteral("[pdtestscheme:thing]"));
    // So does an association in mimeapps.list.
    WriteFile(path("config/mimeapps.list"), "[Default Applications]\nx-scheme-handler/pdother=handler.desktop\n");
    EXPECT_EQ(LaunchTarget(QStringLiteral("pdother://x"), QString(), QString()), kStarted);
    // A removed association is no association.
    WriteFile(path("config/mimeapps.list"), "[Removed Associations]\nx-scheme-handler/pdthird=handler.desktop\n");
    EXPECT_EQ(LaunchTarget(QStringLiteral("pdthird://x"), QString(), QString()), 31);
}

TEST_F(Launcher, DesktopEntryOfAnApplication) {
    WriteScript(path("prog.sh"), path("marker.txt"));
    WriteFile(path("app.desktop"), ("[Desktop Entry]\nType=Application\nName=My App\nName[de]=Meine\nExec=" +
                                    path("prog.sh") + " %f\n")
                                       .toUtf8());
    EXPECT_EQ(LaunchTarget(path("app.desktop"), QStringLiteral("\"/tmp/a file.txt\" /tmp/second"), path("work dir")),
              kStarted);
    // %f takes one file.
    EXPECT_EQ(WaitForMarker(path("marker.txt")), (QStringList{path("work dir"), "[/tmp/a file.txt]"}));

    // Path= is the working folder; the codes %c %k %F, quoting and escapes.
    QFile::remove(path("marker.txt"));
    ASSERT_TRUE(root.mkpath(QStringLiteral("entry dir")));
    WriteFile(path("app2.desktop"),
              ("# comment\n[Other]\nExec=nothing\n[Desktop Entry]\nType=Application\nName=My App\nIcon=app-icon\n"
               "Path=" + path("entry dir") + "\nExec=\"" + path("prog.sh") +
               "\" --name=%c \"quoted \\\\\"x\\\\\"\" %k %i %F 100%%\n")
                  .toUtf8());
    EXPECT_EQ(LaunchTarget(path("app2.desktop"), QStringLiteral("/a /b"), QString()), kStarted);
    EXPECT_EQ(WaitForMarker(path("marker.txt")),
              (QStringList{path("entry dir"), "[--name=My App]", "[quoted \"x\"]", "[" + path("app2.desktop") + "]",
                           "[--icon]", "[app-icon]", "[/a]", "[/b]", "[100%]"}));
}

TEST_F(Launcher, DesktopEntryProblems) {
    WriteFile(path("noexec.desktop"), "[Desktop Entry]\nType=Application\nName=x\n");
    EXPECT_EQ(LaunchTarget(path("noexec.desktop"), QString(), QString()), 11);
    WriteFile(path("missing.desktop"), "[Desktop Entry]\nType=Application\nExec=pd-no-such-program-anywhere %U\n");
    EXPECT_EQ(LaunchTarget(path("missing.desktop"), QString(), QString()), 2);
    WriteFile(path("dir.desktop"), "[Desktop Entry]\nType=Directory\nName=x\n");
    EXPECT_EQ(LaunchTarget(path("dir.desktop"), QString(), QString()), 31);
    WriteFile(path("none.desktop"), "just text\n");
    EXPECT_EQ(LaunchTarget(path("none.desktop"), QString(), QString()), 11);
}

TEST_F(Launcher, DesktopEntryOfALinkOpensItsAddress) {
    const QString opened = InstallOpener();
    WriteFile(path("site.desktop"), "[Desktop Entry]\nType=Link\nName=Site\nURL=https://example.org/x\n");
    EXPECT_EQ(LaunchTarget(path("site.desktop"), QString(), QString()), kStarted);
    EXPECT_EQ(WaitForMarker(opened).value(1), QStringLiteral("[https://example.org/x]"));
}

TEST_F(Launcher, TerminalEntriesRunInATerminal) {
    WriteScript(path("prog.sh"), path("marker.txt"));
    WriteFile(path("term.desktop"),
              ("[Desktop Entry]\nType=Application\nTerminal=true\nExec=" + path("prog.sh") + " %u\n").toUtf8());
    // No terminal: the program runs by itself.
    EXPECT_EQ(LaunchTarget(path("term.desktop"), QStringLiteral("x"), path("work dir")), kStarted);
    EXPECT_EQ(WaitForMarker(path("marker.txt")), (QStringList{path("work dir"), "[x]"}));
    // With one: the terminal is given the command after its flag.
    if (!QStandardPaths::findExecutable(QStringLiteral("x-terminal-emulator")).isEmpty())
        GTEST_SKIP() << "a real x-terminal-emulator is installed";
    WriteScript(path("bin/x-terminal-emulator"), path("terminal.txt"));
    EXPECT_EQ(LaunchTarget(path("term.desktop"), QStringLiteral("x"), path("work dir")), kStarted);
    EXPECT_EQ(WaitForMarker(path("terminal.txt")),
              (QStringList{path("work dir"), "[-e]", "[" + path("prog.sh") + "]", "[x]"}));
}

TEST(DesktopExec, FieldCodes) {
    const QStringList none;
    const QStringList two{QStringLiteral("/a b"), QStringLiteral("/c")};
    auto args = [](const char* exec, const QStringList& files) {
        return DesktopExecArguments(QString::fromUtf8(exec), files, QStringLiteral("ic"), QStringLiteral("Nm"),
                                    QStringLiteral("/e.desktop"));
    };
    EXPECT_EQ(args("prog %f", two), (QStringList{"prog", "/a b"}));
    EXPECT_EQ(args("prog %u", none), (QStringList{"prog"}));
    EXPECT_EQ(args("prog %F", two), (QStringList{"prog", "/a b", "/c"}));
    EXPECT_EQ(args("prog %U --x", none), (QStringList{"prog", "--x"}));
    EXPECT_EQ(args("prog %i %c %k", none), (QStringList{"prog", "--icon", "ic", "Nm", "/e.desktop"}));
    EXPECT_EQ(DesktopExecArguments(QStringLiteral("prog %i"), none, QString(), QString(), QString()),
              QStringList{"prog"});
    EXPECT_EQ(args("prog %d %D %n %N %v %m x", none), (QStringList{"prog", "x"}));
    EXPECT_EQ(args("prog --file=%f 50%%", two), (QStringList{"prog", "--file=/a b", "50%"}));
    // Without a file code the files are appended.
    EXPECT_EQ(args("prog -n", two), (QStringList{"prog", "-n", "/a b", "/c"}));
    // Quoting: blanks kept, backslash escapes of " ` $ \ inside quotes.
    EXPECT_EQ(args("\"/opt/my prog\" \"a \\\"b\\\" \\$c \\\\ \\x\" \"\"", none),
              (QStringList{"/opt/my prog", "a \"b\" $c \\ \\x", ""}));
}

} // namespace
