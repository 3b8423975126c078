#include "platform/qt/Launcher.h"

#include "shortcuts/CommandLine.h"

#include <QDesktopServices>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

namespace pd {

namespace {

constexpr int kStarted = 42;
constexpr int kFileNotFound = 2;
constexpr int kPathNotFound = 3;
constexpr int kAccessDenied = 5;
constexpr int kInvalidProgram = 11;
constexpr int kNoApplication = 31;

// Starts a program detached: it outlives us, and we never wait for it.
int StartProgram(const QString& program, const QStringList& args, const QString& dir) {
    if (!dir.isEmpty() && !QFileInfo(dir).isDir()) return kPathNotFound;
    QProcess process;
    process.setProgram(program);
    process.setArguments(args);
    if (!dir.isEmpty()) process.setWorkingDirectory(dir);
    // The started program does not read from our input.
    process.setStandardInputFile(QProcess::nullDevice());
    if (process.startDetached()) return kStarted;
    const QFileInfo info(program);
    if (!info.exists()) return kFileNotFound;
    if (!info.isExecutable()) return kAccessDenied;
    // There and runnable by its permissions, yet the system would not run it (no interpreter for a
    // script, a binary for another machine).
    return kInvalidProgram;
}

// The freedesktop "applications" folders, the user's first.
QStringList ApplicationFolders() { return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation); }

// Whether any application says it handles `mimeType`: an association in a mimeapps.list, or a desktop
// entry that names the type. Read at each call (a few hundred small files at most), so that an
// application installed a moment ago counts.
bool HasApplicationFor(const QString& mimeType) {
    QStringList lists;
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(QLatin1Char(':'),
                                                                                          Qt::SkipEmptyParts);
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    folders += ApplicationFolders();
    for (const QString& folder : folders) {
        for (const QString& desktop : desktops) lists << folder + QLatin1Char('/') + desktop + QStringLiteral("-mimeapps.list");
        lists << folder + QStringLiteral("/mimeapps.list");
    }
    for (const QString& path : lists) {
        QFile f(path);
        if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) continue;
        bool associations = false;
        while (!f.atEnd()) {
            const QString line = QString::fromUtf8(f.readLine()).trimmed();
            if (line.startsWith(QLatin1Char('['))) {
                associations = line == QLatin1String("[Default Applications]") ||
                               line == QLatin1String("[Added Associations]");
                continue;
            }
            const qsizetype eq = line.indexOf(QLatin1Char('='));
            if (associations && eq > 0 && line.left(eq).trimmed() == mimeType && !line.mid(eq + 1).trimmed().isEmpty())
                return true;
        }
    }
    for (const QString& folder : ApplicationFolders()) {
        QDirIterator it(folder, {QStringLiteral("*.desktop")}, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile f(it.next());
            if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) continue;
            while (!f.atEnd()) {
                const QString line = QString::fromUtf8(f.readLine()).trimmed();
                if (!line.startsWith(QLatin1String("MimeType"))) continue;
                const qsizetype eq = line.indexOf(QLatin1Char('='));
                if (eq < 0 || line.left(eq).trimmed() != QLatin1String("MimeType")) continue;
                if (line.mid(eq + 1).split(QLatin1Char(';'), Qt::SkipEmptyParts).contains(mimeType)) return true;
            }
        }
    }
    return false;
}

// Hands a document, folder or address to the desktop's opener, detached.
int OpenWithDesktop(const QString& target, const QString& dir) {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty()) {
        const QString workDir = !dir.isEmpty() && QFileInfo(dir).isDir() ? dir : QString();
        return StartProgram(opener, {target}, workDir) == kStarted ? kStarted : kNoApplication;
    }
    // Without xdg-open the toolkit's own route may still reach an opener (a portal); it needs the
    // graphical application object.
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        const QUrl url = HasUrlScheme(target) ? QUrl(target) : QUrl::fromLocalFile(target);
        return QDesktopServices::openUrl(url) ? kStarted : kNoApplication;
    }
    return kNoApplication;
}

// An address: the web's schemes always have a browser behind the opener; any other scheme needs an
// application that says it handles it.
int OpenAddress(const QString& address) {
    const QString scheme = address.left(address.indexOf(QLatin1Char(':'))).toLower();
    static const QStringList web = {QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp")};
    if (!web.contains(scheme) && !HasApplicationFor(QStringLiteral("x-scheme-handler/") + scheme))
        return kNoApplication;
    return OpenWithDesktop(address, QString());
}

// The string escapes of desktop entry values: \s \n \t \r \\.
QString UnescapeDesktopValue(const QString& value) {
    QString out;
    out.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value.at(i);
        if (c != QLatin1Char('\\') || i + 1 >= value.size()) {
            out += c;
            continue;
        }
        const QChar next = value.at(++i);
        switch (next.unicode()) {
        case 's': out += QLatin1Char(' '); break;
        case 'n': out += QLatin1Char('\n'); break;
        case 't': out += QLatin1Char('\t'); break;
        case 'r': out += QLatin1Char('\r'); break;
        case '\\': out += QLatin1Char('\\'); break;
        default: out += c; out += next; break;
        }
    }
    return out;
}

// The keys of an entry's [Desktop Entry] group, values unescaped; localised keys are left out.
QHash<QString, QString> ReadDesktopEntry(const QString& path, bool* ok) {
    QHash<QString, QString> keys;
    *ok = false;
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly | QIODevice::Text)) return keys;
    bool inEntry = false;
    while (!f.atEnd()) {
        const QString line = QString::fromUtf8(f.readLine()).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        if (line.startsWith(QLatin1Char('['))) {
            inEntry = line == QLatin1String("[Desktop Entry]");
            *ok = *ok || inEntry;
            continue;
        }
        if (!inEntry) continue;
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq <= 0) continue;
        const QString key = line.left(eq).trimmed();
        if (key.contains(QLatin1Char('[')) || keys.contains(key)) continue;
        keys.insert(key, UnescapeDesktopValue(line.mid(eq + 1).trimmed()));
    }
    return keys;
}

// A terminal to run an entry with Terminal=true in, as the program and the flag before the command.
QStringList FindTerminal() {
    const QString fromEnv = qEnvironmentVariable("TERMINAL");
    if (!fromEnv.isEmpty()) {
        const QString found = QStandardPaths::findExecutable(fromEnv);
        if (!found.isEmpty()) return {found, QStringLiteral("-e")};
    }
    static const std::pair<const char*, const char*> terminals[] = {
        {"x-terminal-emulator", "-e"}, {"xdg-terminal-exec", ""}, {"gnome-terminal", "--"},
        {"konsole", "-e"},           {"xfce4-terminal", "-x"},  {"mate-terminal", "-x"},
        {"lxterminal", "-e"},        {"alacritty", "-e"},       {"kitty", ""},
        {"foot", ""},                {"xterm", "-e"},
    };
    for (const auto& [name, flag] : terminals) {
        const QString found = QStandardPaths::findExecutable(QString::fromLatin1(name));
        if (found.isEmpty()) continue;
        QStringList command{found};
        if (*flag) command << QString::fromLatin1(flag);
        return command;
    }
    return {};
}

int LaunchDesktopEntry(const QString& path, const QString& params, const QString& dir) {
    bool ok = false;
    const QHash<QString, QString> entry = ReadDesktopEntry(path, &ok);
    if (!ok) return kInvalidProgram;
    const QString type = entry.value(QStringLiteral("Type"));
    if (type == QLatin1String("Link")) {
        const QString url = entry.value(QStringLiteral("URL"));
        if (url.isEmpty()) return kInvalidProgram;
        return HasUrlScheme(url) && !url.startsWith(QLatin1String("file:"), Qt::CaseInsensitive)
                   ? OpenAddress(url)
                   : LaunchTarget(url.startsWith(QLatin1String("file:"), Qt::CaseInsensitive) ? QUrl(url).toLocalFile() : url,
                                  QString(), QString());
    }
    if (type != QLatin1String("Application")) return kNoApplication;
    QStringList args = DesktopExecArguments(entry.value(QStringLiteral("Exec")), SplitCommandLine(params),
                                            entry.value(QStringLiteral("Icon")), entry.value(QStringLiteral("Name")),
                                            path);
    if (args.isEmpty()) return kInvalidProgram;
    QString program = args.takeFirst();
    if (!program.contains(QLatin1Char('/'))) {
        const QString found = QStandardPaths::findExecutable(program);
        if (found.isEmpty()) return kFileNotFound;
        program = found;
    } else if (!QFileInfo::exists(program)) {
        return QFileInfo(QFileInfo(program).absolutePath()).isDir() ? kFileNotFound : kPathNotFound;
    }
    const QString entryDir = entry.value(QStringLiteral("Path"));
    const QString workDir = entryDir.isEmpty() ? dir : entryDir;
    if (entry.value(QStringLiteral("Terminal")).trimmed().toLower() == QLatin1String("true")) {
        // Without any terminal the program runs by itself rather than not at all.
        QStringList terminal = FindTerminal();
        if (!terminal.isEmpty()) {
            const QString terminalProgram = terminal.takeFirst();
            return StartProgram(terminalProgram, terminal + QStringList{program} + args, workDir);
        }
    }
    return StartProgram(program, args, workDir);
}

// A regular file that holds a program for this system (an ELF image).
bool IsProgramImage(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return false;
    return f.read(4) == QByteArray("\x7f" "ELF", 4);
}

} // namespace

QStringList DesktopExecArguments(const QString& exec, const QStringList& files, const QString& icon,
                                 const QString& name, const QString& entryPath) {
    // Split by the entry's quoting: a quoted argument may hold blanks, and in it a backslash makes
    // the next of " ` $ \ literal.
    QStringList words;
    QString word;
    bool inWord = false;
    bool quoted = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec.at(i);
        if (quoted) {
            if (c == QLatin1Char('\\') && i + 1 < exec.size() &&
                QStringLiteral("\"`$\\").contains(exec.at(i + 1))) {
                word += exec.at(++i);
            } else if (c == QLatin1Char('"')) {
                quoted = false;
            } else {
                word += c;
            }
        } else if (c == QLatin1Char('"')) {
            quoted = true;
            inWord = true;
        } else if (c.isSpace()) {
            if (inWord) words << word;
            word.clear();
            inWord = false;
        } else {
            word += c;
            inWord = true;
        }
    }
    if (inWord) words << word;

    QStringList args;
    bool filesUsed = false;
    for (const QString& w : words) {
        if (w == QLatin1String("%f") || w == QLatin1String("%u")) {
            filesUsed = true;
            if (!files.isEmpty()) args << files.first();
            continue;
        }
        if (w == QLatin1String("%F") || w == QLatin1String("%U")) {
            filesUsed = true;
            args << files;
            continue;
        }
        if (w == QLatin1String("%i")) {
            if (!icon.isEmpty()) args << QStringLiteral("--icon") << icon;
            continue;
        }
        // Codes inside a word: expanded in place; unknown and deprecated ones are dropped, and a word
        // of nothing but such codes goes with them.
        QString out;
        bool onlyCodes = true;
        for (qsizetype i = 0; i < w.size(); ++i) {
            if (w.at(i) != QLatin1Char('%') || i + 1 >= w.size()) {
                out += w.at(i);
                onlyCodes = false;
                continue;
            }
            const QChar code = w.at(++i);
            switch (code.unicode()) {
            case '%': out += QLatin1Char('%'); break;
            case 'c': out += name; break;
            case 'k': out += entryPath; break;
            case 'f':
            case 'u':
            case 'F':
            case 'U':
                filesUsed = true;
                if (!files.isEmpty()) out += files.first();
                break;
            default: break;
            }
        }
        if (w.isEmpty() || !out.isEmpty() || !onlyCodes) args << out;
    }
    // Parameters given to an entry whose command takes no files still reach the program.
    if (!filesUsed) args << files;
    return args;
}

int LaunchTarget(const QString& file, const QString& params, const QString& dir) {
    QString target = file;
    if (target.isEmpty()) return kFileNotFound;
    if (HasUrlScheme(target)) {
        if (!target.startsWith(QLatin1String("file:"), Qt::CaseInsensitive)) return OpenAddress(target);
        target = QUrl(target).toLocalFile();
        if (target.isEmpty()) return kFileNotFound;
    }
    QFileInfo info(target);
    if (info.isRelative()) {
        const QFileInfo inDir(QDir(dir.isEmpty() ? QDir::currentPath() : dir).filePath(target));
        if (inDir.exists()) {
            info = inDir;
        } else if (!target.contains(QLatin1Char('/'))) {
            // A bare name: a program on PATH, or an address typed without its scheme.
            const QString program = QStandardPaths::findExecutable(target);
            if (!program.isEmpty()) return StartProgram(program, SplitCommandLine(params), dir);
            if (target.startsWith(QLatin1String("www."), Qt::CaseInsensitive))
                return OpenAddress(QStringLiteral("http://") + target);
            info = inDir;
        } else {
            info = inDir;
        }
    }
    if (!info.exists()) return QFileInfo(info.absolutePath()).isDir() ? kFileNotFound : kPathNotFound;
    const QString path = info.absoluteFilePath();
    if (info.isDir()) return OpenWithDesktop(path, dir);
    if (info.suffix().compare(QLatin1String("desktop"), Qt::CaseInsensitive) == 0)
        return LaunchDesktopEntry(path, params, dir);
    if (info.isExecutable()) return StartProgram(path, SplitCommandLine(params), dir);
    if (!info.isReadable()) return kAccessDenied;
    // A program without the permission to run is not a document to open with something else. A
    // script without it is (file managers open it in the editor).
    if (IsProgramImage(path)) return kAccessDenied;
    return OpenWithDesktop(path, dir);
}

} // namespace pd
