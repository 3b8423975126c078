#pragma once
// Our own readers of link files, working on bytes so that tests and the fuzz target can feed them
// directly:
//  - Windows shell links (.lnk), the binary format of the Windows shell: header, target ID list, link
//    information, string data and extra data blocks;
//  - Internet shortcuts (.url), the INI form;
//  - freedesktop desktop entries (.desktop) of the types Link and Application.
//
// The target of a shell link is the path that the Windows shell reports as the link's target path, taken
// from the first of these that gives a non-empty text (`ShellLink::Target`):
//  1. When the flags ask the environment path to be preferred: the EnvironmentVariableDataBlock's target.
//  2. The link information's local form: LocalBasePath followed by CommonPathSuffix (each in its Unicode
//     form when the structure holds one), e.g. `C:\test\a.txt`; a separator is put between the two only
//     when neither brings one.
//  3. Its network form: for a mapped drive the DeviceName followed by `\` and the suffix (`Z:\dir\f.pdf`),
//     otherwise the NetName followed by `\` and the suffix (`\\server\share\dir\f.pdf`); a bare share
//     when the suffix is empty.
//  4. The EnvironmentVariableDataBlock's target, as it stands (`%windir%\system32\x.exe`): the variables
//     belong to the Windows machine and are not expanded here.
//  5. A path built from the target ID list when it is "My Computer" (optional), a drive item (`C:\`) and
//     then only file-system items; the long names of the items are used where the items carry them. Any
//     other item (control panel, known folders, apps, network places...) gives no path.
//  6. The RELATIVE_PATH string, which is relative to the folder of the link file itself.
// Rules 5 and 6 do not apply to an advertised installer shortcut (one with a DarwinDataBlock): its ID list
// and relative path lead to the product's icon, not to what the link starts.
// Anything else (an app of the Windows store, an advertised installer shortcut without a path...) has no
// file target, and the target is empty.
// Windows paths are returned as Windows text: on Linux the caller decides what to make of `C:\x\y.txt`.
//
// 8-bit strings are in the code page of the Windows machine that wrote the link, which the file does not
// name. They are read as the program's text files are: UTF-8 when the bytes are valid UTF-8 (links written
// by other tools), otherwise Windows-1252. When a target read this way holds characters that the
// Windows-1252 reading had to guess, the Unicode strings of the same link that name the same place (the
// working folder, the relative path, the environment block's Unicode target, the long names of the ID
// list) are laid over it character by character; so a link made on a Cyrillic system, whose 8-bit path
// reads `C:\Users\Äèìà\x` in Windows-1252 while its Unicode working folder is `C:\Users\Дима`, gives
// `C:\Users\Дима\x`.
//
// Every read is bounds-checked and no size field is trusted: a structure that the flags announce must lie
// wholly inside the file, or the link is not read at all; an offset or a count inside a structure that
// points outside it leaves that one field empty. The extra data blocks are read as long as they are whole.

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace pd {

struct ShellLink {
    // Bits of LinkFlags.
    enum Flag : std::uint32_t {
        HasLinkTargetIDList = 0x1,
        HasLinkInfo = 0x2,
        HasName = 0x4,
        HasRelativePath = 0x8,
        HasWorkingDir = 0x10,
        HasArguments = 0x20,
        HasIconLocation = 0x40,
        IsUnicode = 0x80,
        ForceNoLinkInfo = 0x100,
        HasExpString = 0x200,
        HasDarwinID = 0x1000,
        PreferEnvironmentPath = 0x2000000,
    };
    // Bits of LinkInfoFlags.
    enum LinkInfoFlag : std::uint32_t {
        VolumeIDAndLocalBasePath = 0x1,
        CommonNetworkRelativeLinkAndPathSuffix = 0x2,
    };
    // Bits of the network link's flags.
    enum NetworkFlag : std::uint32_t {
        ValidDevice = 0x1,
        ValidNetType = 0x2,
    };
    // Where the target came from.
    enum class TargetSource { None, Environment, LocalPath, NetworkPath, IDList, RelativePath };

    // The header.
    std::uint32_t linkFlags = 0;
    std::uint32_t fileAttributes = 0;
    std::uint64_t creationTime = 0; // FILETIME: 100 ns units since 1601-01-01 UTC
    std::uint64_t accessTime = 0;
    std::uint64_t writeTime = 0;
    std::uint32_t fileSize = 0;
    std::int32_t iconIndex = 0;
    std::uint32_t showCommand = 0;
    std::uint16_t hotKey = 0;

    // The target ID list: its items' raw bytes (without their size fields), and the path built from them
    // (rule 5 above; empty when the items are not a plain file-system path).
    std::vector<QByteArray> idListItems;
    QString idListPath;

    // The link information.
    bool hasLinkInfo = false;
    std::uint32_t linkInfoFlags = 0;
    bool hasVolumeId = false;
    std::uint32_t driveType = 0;
    std::uint32_t driveSerialNumber = 0;
    QString volumeLabel;
    QString localBasePath;
    QString commonPathSuffix;
    bool hasNetworkLink = false;
    std::uint32_t networkFlags = 0;
    std::uint32_t networkProviderType = 0;
    QString netName;
    QString deviceName;

    // The string data.
    QString name; // the description
    QString relativePath;
    QString workingDir;
    QString arguments;
    QString iconLocation;

    // The extra data blocks: the signature of every whole block in file order, and the ones read.
    std::vector<std::uint32_t> extraBlockSignatures;
    QString environmentTarget; // EnvironmentVariableDataBlock
    QString darwinId;          // DarwinDataBlock (advertised installer shortcut)
    QString iconEnvironment;   // IconEnvironmentDataBlock

    bool has(std::uint32_t flag) const { return (linkFlags & flag) != 0; }

    // Reads a shell link from its bytes; nothing when they are not one or are cut short.
    static std::optional<ShellLink> Parse(QByteArrayView bytes);

    // The target by the rule above, with where it came from.
    QString Target(TargetSource* source = nullptr) const;

    // Set by Parse: which texts were read from 8-bit fields as Windows-1252 (see above).
    bool localPathGuessed = false;
    bool networkPathGuessed = false;
    bool environmentGuessed = false;
};

// The target of an Internet shortcut: `URL=` of the `[InternetShortcut]` section, sections and keys
// compared without case. The bytes may be UTF-8 (with or without a BOM), UTF-16 with a BOM, or
// Windows-1252; any line ends. Empty when the key is missing or empty.
QString InternetShortcutTarget(QByteArrayView bytes);

// Finds a program by name in PATH; empty when it is not there.
using ProgramFinder = std::function<QString(const QString&)>;
QString FindProgramInPath(const QString& name);

// The target of a desktop entry (first group `[Desktop Entry]`, keys compared exactly):
//  - Type=Link: its URL.
//  - Type=Application: its program, the first word of Exec after the entry's quoting rules (the escapes of
//    string values, then words split at unquoted blanks, double quotes with `\"`, `\``, `\$`, `\\` inside),
//    with field codes such as %f, %U, %i dropped, and `%%` read as `%`. A name without a `/` is looked up
//    with `find` (PATH by default); one that is not found gives empty, as does a relative path.
// Anything else gives empty.
QString DesktopEntryTarget(QByteArrayView bytes, const ProgramFinder& find = FindProgramInPath);

// The words of an Exec value after the quoting rules above, field codes dropped.
QStringList DesktopExecWords(const QString& exec);

} // namespace pd
