// Reading Windows shell links, Internet shortcuts and desktop entries from their bytes. The rules are
// described in ShellLink.h.

#include "shortcuts/ShellLink.h"

#include "app/files/TextFile.h"

#include <QHash>
#include <QStandardPaths>
#include <QStringDecoder>

#include <array>

namespace pd {

namespace {

// A read-only window on bytes in which every read says whether it fitted.
class Bytes {
  public:
    explicit Bytes(QByteArrayView v) : v_(v) {}
    qsizetype size() const { return v_.size(); }
    bool fits(qsizetype off, qsizetype n) const {
        return off >= 0 && n >= 0 && off <= v_.size() && n <= v_.size() - off;
    }
    std::optional<std::uint16_t> u16(qsizetype off) const {
        if (!fits(off, 2)) return std::nullopt;
        return static_cast<std::uint16_t>(byte(off) | byte(off + 1) << 8);
    }
    std::optional<std::uint32_t> u32(qsizetype off) const {
        if (!fits(off, 4)) return std::nullopt;
        return static_cast<std::uint32_t>(byte(off) | byte(off + 1) << 8 | byte(off + 2) << 16) |
               static_cast<std::uint32_t>(byte(off + 3)) << 24;
    }
    std::optional<std::uint64_t> u64(qsizetype off) const {
        const auto lo = u32(off), hi = u32(off + 4);
        if (!lo || !hi) return std::nullopt;
        return static_cast<std::uint64_t>(*hi) << 32 | *lo;
    }
    // The bytes [off, off + n), which must fit.
    QByteArrayView slice(qsizetype off, qsizetype n) const {
        return fits(off, n) ? v_.sliced(off, n) : QByteArrayView();
    }
    // The bytes from `off` to the first NUL; nothing when there is no NUL before the end.
    std::optional<QByteArrayView> cString(qsizetype off) const {
        if (!fits(off, 0)) return std::nullopt;
        for (qsizetype i = off; i < v_.size(); ++i)
            if (v_[i] == '\0') return v_.sliced(off, i - off);
        return std::nullopt;
    }
    // The UTF-16 text from `off` to the first NUL unit; nothing when there is none before the end.
    std::optional<QString> utf16String(qsizetype off) const {
        if (!fits(off, 0)) return std::nullopt;
        for (qsizetype i = off; fits(i, 2); i += 2)
            if (*u16(i) == 0) return utf16(off, (i - off) / 2);
        return std::nullopt;
    }
    // `count` UTF-16 units from `off`, which must fit.
    QString utf16(qsizetype off, qsizetype count) const {
        QString s(count, Qt::Uninitialized);
        for (qsizetype i = 0; i < count; ++i)
            s[i] = QChar(*u16(off + 2 * i));
        return s;
    }

  private:
    unsigned byte(qsizetype off) const { return static_cast<unsigned char>(v_[off]); }
    QByteArrayView v_;
};

// An 8-bit string of a link: UTF-8 when the bytes are valid UTF-8, otherwise Windows-1252. `guessed` is
// set when the Windows-1252 reading had to map a byte above 0x7F.
QString DecodeAnsi(QByteArrayView bytes, bool* guessed = nullptr) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = utf8.decode(bytes);
    if (!utf8.hasError()) return text;
    if (guessed) *guessed = true; // not valid UTF-8, so there is a byte above 0x7F
    return DecodeText(bytes.toByteArray());
}

// The 8-bit string at `off` of `b`, ending at its NUL; empty when it has none.
QString AnsiAt(const Bytes& b, qsizetype off, bool* guessed = nullptr) {
    const auto s = b.cString(off);
    return s ? DecodeAnsi(*s, guessed) : QString();
}

QString UnicodeAt(const Bytes& b, qsizetype off) {
    return b.utf16String(off).value_or(QString());
}

// A Unicode string of a fixed-size field: up to its first NUL, or the whole field.
QString UnicodeField(QByteArrayView field) {
    const Bytes b(field);
    qsizetype n = 0;
    while (b.fits(2 * n, 2) && *b.u16(2 * n) != 0)
        ++n;
    return b.utf16(0, n);
}

constexpr std::array<unsigned char, 16> kLinkClsid = {0x01, 0x14, 0x02, 0x00, 0x00, 0x00, 0x00, 0x00,
                                                      0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46};
// The shell folder "My Computer" ({20D04FE0-3AEA-1069-A2D8-08002B30309D}) as stored in an ID list.
constexpr std::array<unsigned char, 16> kMyComputer = {0xE0, 0x4F, 0xD0, 0x20, 0xEA, 0x3A, 0x69, 0x10,
                                                       0xA2, 0xD8, 0x08, 0x00, 0x2B, 0x30, 0x30, 0x9D};

constexpr std::uint32_t kEnvironmentBlock = 0xA0000001;
constexpr std::uint32_t kDarwinBlock = 0xA0000006;
constexpr std::uint32_t kIconEnvironmentBlock = 0xA0000007;
// These three blocks are 788 bytes: size, signature, a 260-byte 8-bit target, a 520-byte Unicode target.
constexpr qsizetype kTargetBlockSize = 0x314;

bool SameBytes(QByteArrayView a, const std::array<unsigned char, 16>& b) {
    if (a.size() != 16) return false;
    for (int i = 0; i < 16; ++i)
        if (static_cast<unsigned char>(a[i]) != b[i]) return false;
    return true;
}

bool IsPlainName(const QString& s) {
    if (s.isEmpty() || s == QLatin1String(".") || s == QLatin1String("..")) return false;
    for (const QChar c : s)
        if (c.unicode() < 0x20 || c == QLatin1Char('\\') || c == QLatin1Char('/')) return false;
    return true;
}

// The name of a file-system item of an ID list (`data` is the item without its size field): the long
// name of its 0xBEEF0004 extension block when it has a sound one, otherwise its primary name.
QString FileItemName(QByteArrayView data) {
    const Bytes b(data);
    constexpr qsizetype kNameOffset = 12;
    const bool unicodeName = (static_cast<unsigned char>(data[0]) & 0x04) != 0;
    QString primary;
    qsizetype after = -1; // where the primary name's terminator ends
    if (unicodeName) {
        const auto s = b.utf16String(kNameOffset);
        if (!s) return {};
        primary = *s;
        after = kNameOffset + 2 * (s->size() + 1);
    } else {
        const auto s = b.cString(kNameOffset);
        if (!s) return {};
        primary = DecodeAnsi(*s);
        after = kNameOffset + s->size() + 1;
    }
    // The extension block starts at an even offset of the item; the item's size field is 2 bytes, so
    // that is an even offset of `data` too.
    const qsizetype ext = (after + 1) & ~qsizetype(1);
    const auto size = b.u16(ext), version = b.u16(ext + 2);
    const auto signature = b.u32(ext + 4);
    if (size && version && signature && *signature == 0xBEEF0004 && *size >= 8 && b.fits(ext, *size)) {
        qsizetype nameAt = -1;
        if (*version >= 9)
            nameAt = 46;
        else if (*version == 8)
            nameAt = 42;
        else if (*version == 7)
            nameAt = 38;
        else if (*version == 3)
            nameAt = 20;
        if (nameAt > 0 && nameAt < *size - 2) {
            // The long name must end before the block's last field (the offset of the block in the item).
            const Bytes block(b.slice(ext, *size - 2));
            const auto longName = block.utf16String(nameAt);
            if (longName && IsPlainName(*longName)) return *longName;
        }
    }
    return IsPlainName(primary) ? primary : QString();
}

// A path from ID list items: "My Computer" (optional), a drive, then file-system items; else empty.
QString IdListPath(const std::vector<QByteArray>& items) {
    std::size_t i = 0;
    if (i < items.size() && !items[i].isEmpty() && static_cast<unsigned char>(items[i][0]) == 0x1F) {
        if (items[i].size() < 18 || !SameBytes(QByteArrayView(items[i]).sliced(2, 16), kMyComputer))
            return {};
        ++i;
    }
    if (i >= items.size() || items[i].isEmpty() || (static_cast<unsigned char>(items[i][0]) & 0x70) != 0x20)
        return {};
    const auto drive = Bytes(items[i]).cString(1);
    if (!drive || drive->size() != 3 || !QChar::isLetter(static_cast<unsigned char>((*drive)[0])) ||
        (*drive)[1] != ':' || (*drive)[2] != '\\')
        return {};
    QString path = QString::fromLatin1(*drive);
    bool first = true;
    for (++i; i < items.size(); ++i) {
        const QByteArray& item = items[i];
        if (item.size() < 14 || (static_cast<unsigned char>(item[0]) & 0x70) != 0x30) return {};
        const QString name = FileItemName(item);
        if (name.isEmpty()) return {};
        if (!first) path += QLatin1Char('\\');
        path += name;
        first = false;
    }
    return path;
}

void ReadVolumeId(ShellLink& link, const Bytes& info, std::uint32_t off) {
    const auto size = info.u32(off);
    if (!size || *size < 0x10 || !info.fits(off, *size)) return;
    const Bytes volume(info.slice(off, *size));
    link.hasVolumeId = true;
    link.driveType = *volume.u32(4);
    link.driveSerialNumber = *volume.u32(8);
    const std::uint32_t labelOffset = *volume.u32(12);
    if (labelOffset == 0x14) {
        if (const auto unicodeOffset = volume.u32(16)) link.volumeLabel = UnicodeAt(volume, *unicodeOffset);
    } else {
        link.volumeLabel = AnsiAt(volume, labelOffset);
    }
}

void ReadNetworkLink(ShellLink& link, const Bytes& info, std::uint32_t off) {
    const auto size = info.u32(off);
    if (!size || *size < 0x14 || !info.fits(off, *size)) return;
    const Bytes net(info.slice(off, *size));
    link.hasNetworkLink = true;
    link.networkFlags = *net.u32(4);
    const std::uint32_t netNameOffset = *net.u32(8);
    const std::uint32_t deviceNameOffset = *net.u32(12);
    link.networkProviderType = *net.u32(16);
    bool guessed = false;
    link.netName = AnsiAt(net, netNameOffset, &guessed);
    if (link.networkFlags & ShellLink::ValidDevice) link.deviceName = AnsiAt(net, deviceNameOffset, &guessed);
    // The Unicode forms follow when the names start after a longer header.
    if (netNameOffset > 0x14) {
        if (const auto u = net.u32(0x14)) {
            const QString s = UnicodeAt(net, *u);
            if (!s.isEmpty()) link.netName = s;
        }
        if (const auto u = net.u32(0x18); u && (link.networkFlags & ShellLink::ValidDevice)) {
            const QString s = UnicodeAt(net, *u);
            if (!s.isEmpty()) link.deviceName = s;
        }
    }
    link.networkPathGuessed = guessed;
}

void ReadLinkInfo(ShellLink& link, QByteArrayView bytes) {
    const Bytes info(bytes);
    const std::uint32_t headerSize = *info.u32(4);
    if (headerSize < 0x1C || headerSize > info.size()) return;
    link.hasLinkInfo = true;
    link.linkInfoFlags = *info.u32(8);
    const std::uint32_t volumeOffset = *info.u32(12);
    const std::uint32_t basePathOffset = *info.u32(16);
    const std::uint32_t networkOffset = *info.u32(20);
    const std::uint32_t suffixOffset = *info.u32(24);
    const bool unicodeOffsets = headerSize >= 0x24;

    bool suffixGuessed = false;
    link.commonPathSuffix = AnsiAt(info, suffixOffset, &suffixGuessed);
    if (unicodeOffsets && *info.u32(32) != 0) {
        const QString s = UnicodeAt(info, *info.u32(32));
        if (!s.isEmpty() || link.commonPathSuffix.isEmpty()) {
            link.commonPathSuffix = s;
            suffixGuessed = false;
        }
    }
    if (link.linkInfoFlags & ShellLink::VolumeIDAndLocalBasePath) {
        ReadVolumeId(link, info, volumeOffset);
        bool guessed = false;
        link.localBasePath = AnsiAt(info, basePathOffset, &guessed);
        if (unicodeOffsets && *info.u32(28) != 0) {
            const QString s = UnicodeAt(info, *info.u32(28));
            if (!s.isEmpty()) {
                link.localBasePath = s;
                guessed = false;
            }
        }
        link.localPathGuessed = guessed || suffixGuessed;
    }
    if (link.linkInfoFlags & ShellLink::CommonNetworkRelativeLinkAndPathSuffix) {
        ReadNetworkLink(link, info, networkOffset);
        link.networkPathGuessed = link.networkPathGuessed || suffixGuessed;
    }
}

// Reads an extra data block of the three fixed-size target kinds.
QString BlockTarget(const Bytes& block, bool* guessed) {
    const QString unicode = UnicodeField(block.slice(268, 520));
    if (!unicode.isEmpty()) return unicode;
    const QByteArrayView ansi = block.slice(8, 260);
    const qsizetype nul = ansi.indexOf('\0');
    return DecodeAnsi(nul < 0 ? ansi : ansi.first(nul), guessed);
}

// Joins a base path and a suffix with one separator between them.
QString JoinPath(const QString& base, const QString& suffix) {
    if (suffix.isEmpty()) return base;
    if (base.isEmpty()) return suffix;
    if (base.endsWith(QLatin1Char('\\')) || suffix.startsWith(QLatin1Char('\\'))) return base + suffix;
    return base + QLatin1Char('\\') + suffix;
}

bool HasSurrogates(const QString& s) {
    for (const QChar c : s)
        if (c.isSurrogate()) return true;
    return false;
}

// Lays `hint` over `target` from position `at`: every ASCII character must agree (letter case aside)
// and every guessed character must face a non-ASCII one; the pairs of guessed and hinted characters
// are added to `map` when none contradicts it.
bool Align(const QString& target, qsizetype at, QStringView hint, QHash<QChar, QChar>& map) {
    if (at < 0 || at + hint.size() > target.size() || hint.isEmpty()) return false;
    QHash<QChar, QChar> found;
    for (qsizetype i = 0; i < hint.size(); ++i) {
        const QChar t = target[at + i], h = hint[i];
        if (t.unicode() < 0x80) {
            if (h.unicode() >= 0x80 || t.toLower() != h.toLower()) return false;
        } else {
            if (h.unicode() < 0x80) return false;
            const QChar known = map.value(t, found.value(t, h));
            if (known != h) return false;
            found.insert(t, h);
        }
    }
    for (auto it = found.cbegin(); it != found.cend(); ++it)
        map.insert(it.key(), it.value());
    return true;
}

// The repair of a target read as Windows-1252 described in ShellLink.h.
QString OverlayUnicode(const QString& target, const QStringList& hints) {
    QHash<QChar, QChar> map;
    for (const QString& hint : hints) {
        if (hint.isEmpty() || HasSurrogates(hint)) continue;
        // The same path, or the path of a parent folder: it lines up from the start and ends at a separator.
        if (hint.size() == target.size() || hint.endsWith(QLatin1Char('\\')) ||
            (hint.size() < target.size() && target[hint.size()] == QLatin1Char('\\')))
            Align(target, 0, hint, map);
        // A relative path lines up at the end once its leading `.\` and `..\` are gone.
        QStringView tail(hint);
        while (tail.startsWith(QLatin1String(".\\")) || tail.startsWith(QLatin1String("..\\")))
            tail = tail.sliced(tail.indexOf(QLatin1Char('\\')) + 1);
        const qsizetype at = target.size() - tail.size();
        if (at > 0 && target[at - 1] == QLatin1Char('\\')) Align(target, at, tail, map);
    }
    if (map.isEmpty()) return target;
    QString out = target;
    for (QChar& c : out)
        if (c.unicode() >= 0x80) c = map.value(c, c);
    return out;
}

} // namespace

std::optional<ShellLink> ShellLink::Parse(QByteArrayView bytes) {
    const Bytes b(bytes);
    constexpr qsizetype kHeaderSize = 0x4C;
    if (b.u32(0) != kHeaderSize || !b.fits(0, kHeaderSize) || !SameBytes(b.slice(4, 16), kLinkClsid))
        return std::nullopt;
    ShellLink link;
    link.linkFlags = *b.u32(0x14);
    link.fileAttributes = *b.u32(0x18);
    link.creationTime = *b.u64(0x1C);
    link.accessTime = *b.u64(0x24);
    link.writeTime = *b.u64(0x2C);
    link.fileSize = *b.u32(0x34);
    link.iconIndex = static_cast<std::int32_t>(*b.u32(0x38));
    link.showCommand = *b.u32(0x3C);
    link.hotKey = *b.u16(0x40);
    qsizetype pos = kHeaderSize;

    if (link.has(HasLinkTargetIDList)) {
        const auto size = b.u16(pos);
        if (!size || !b.fits(pos + 2, *size)) return std::nullopt;
        const Bytes list(b.slice(pos + 2, *size));
        bool terminated = false;
        for (qsizetype p = 0; list.fits(p, 2);) {
            const std::uint16_t itemSize = *list.u16(p);
            if (itemSize == 0) {
                terminated = true;
                break;
            }
            if (itemSize < 3 || !list.fits(p, itemSize)) break;
            link.idListItems.push_back(list.slice(p + 2, itemSize - 2).toByteArray());
            p += itemSize;
        }
        if (terminated) link.idListPath = IdListPath(link.idListItems);
        pos += 2 + *size;
    }

    if (link.has(HasLinkInfo)) {
        const auto size = b.u32(pos);
        if (!size || *size < 0x1C || !b.fits(pos, *size)) return std::nullopt;
        if (!link.has(ForceNoLinkInfo)) ReadLinkInfo(link, b.slice(pos, *size));
        pos += *size;
    }

    const bool unicode = link.has(IsUnicode);
    const std::pair<Flag, QString*> strings[] = {
        {HasName, &link.name},
        {HasRelativePath, &link.relativePath},
        {HasWorkingDir, &link.workingDir},
        {HasArguments, &link.arguments},
        {HasIconLocation, &link.iconLocation},
    };
    for (const auto& [flag, field] : strings) {
        if (!link.has(flag)) continue;
        const auto count = b.u16(pos);
        const qsizetype size = count ? qsizetype(*count) * (unicode ? 2 : 1) : 0;
        if (!count || !b.fits(pos + 2, size)) return std::nullopt;
        *field = unicode ? b.utf16(pos + 2, *count) : DecodeAnsi(b.slice(pos + 2, size));
        pos += 2 + size;
    }

    // Extra data blocks, up to the terminal block (size below 4) or the first block that is not whole.
    while (true) {
        const auto size = b.u32(pos);
        if (!size || *size < 8 || !b.fits(pos, *size)) break;
        const Bytes block(b.slice(pos, *size));
        const std::uint32_t signature = *block.u32(4);
        link.extraBlockSignatures.push_back(signature);
        if (*size == kTargetBlockSize) {
            if (signature == kEnvironmentBlock) {
                bool guessed = false;
                link.environmentTarget = BlockTarget(block, &guessed);
                link.environmentGuessed = guessed;
            } else if (signature == kDarwinBlock) {
                link.darwinId = BlockTarget(block, nullptr);
            } else if (signature == kIconEnvironmentBlock) {
                link.iconEnvironment = BlockTarget(block, nullptr);
            }
        }
        pos += *size;
    }
    return link;
}

QString ShellLink::Target(TargetSource* source) const {
    QString target;
    TargetSource from = TargetSource::None;
    bool guessed = false;
    if (has(PreferEnvironmentPath) && !environmentTarget.isEmpty()) {
        target = environmentTarget;
        from = TargetSource::Environment;
        guessed = environmentGuessed;
    } else if (hasLinkInfo && (linkInfoFlags & VolumeIDAndLocalBasePath) && !localBasePath.isEmpty()) {
        target = JoinPath(localBasePath, commonPathSuffix);
        from = TargetSource::LocalPath;
        guessed = localPathGuessed;
    } else if (hasNetworkLink && (!deviceName.isEmpty() || !netName.isEmpty())) {
        target = JoinPath(deviceName.isEmpty() ? netName : deviceName, commonPathSuffix);
        from = TargetSource::NetworkPath;
        guessed = networkPathGuessed;
    } else if (!environmentTarget.isEmpty()) {
        target = environmentTarget;
        from = TargetSource::Environment;
        guessed = environmentGuessed;
    } else if (has(HasDarwinID) && !darwinId.isEmpty()) {
        // An advertised installer shortcut names a product; its ID list and relative path lead to the
        // product's icon, which is not what the link starts.
    } else if (!idListPath.isEmpty()) {
        target = idListPath;
        from = TargetSource::IDList;
    } else if (!relativePath.isEmpty()) {
        target = relativePath;
        from = TargetSource::RelativePath;
    }
    if (guessed) {
        QStringList hints;
        if (has(IsUnicode)) hints << workingDir << relativePath;
        if (!environmentGuessed) hints << environmentTarget;
        hints << idListPath;
        target = OverlayUnicode(target, hints);
    }
    if (source) *source = from;
    return target;
}

// ---- Internet shortcuts ----

namespace {

QString DecodeIniBytes(QByteArrayView bytes) {
    if (bytes.startsWith("\xFF\xFE")) return QStringDecoder(QStringDecoder::Utf16LE).decode(bytes.sliced(2));
    if (bytes.startsWith("\xFE\xFF")) return QStringDecoder(QStringDecoder::Utf16BE).decode(bytes.sliced(2));
    return DecodeText(bytes.toByteArray());
}

// The value of `key` in `[section]` of an INI file; keys and sections compare without case, and the first
// occurrence counts.
QString IniValue(const QStringList& lines, const QString& section, const QString& key) {
    bool inSection = false;
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            inSection = line.compare(QLatin1Char('[') + section + QLatin1Char(']'), Qt::CaseInsensitive) == 0;
            continue;
        }
        if (!inSection) continue;
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq > 0 && line.left(eq).trimmed().compare(key, Qt::CaseInsensitive) == 0)
            return line.mid(eq + 1).trimmed();
    }
    return {};
}

} // namespace

QString InternetShortcutTarget(QByteArrayView bytes) {
    return IniValue(SplitLines(DecodeIniBytes(bytes)), QStringLiteral("InternetShortcut"),
                    QStringLiteral("URL"));
}

// ---- Desktop entries ----

namespace {

// The escapes of a desktop entry's string values: \s \n \t \r \\; any other backslash stays.
QString UnescapeValue(const QString& value) {
    QString out;
    out.reserve(value.size());
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value[i];
        if (c != QLatin1Char('\\') || i + 1 >= value.size()) {
            out += c;
            continue;
        }
        const QChar n = value[i + 1];
        if (n == QLatin1Char('s'))
            out += QLatin1Char(' ');
        else if (n == QLatin1Char('n'))
            out += QLatin1Char('\n');
        else if (n == QLatin1Char('t'))
            out += QLatin1Char('\t');
        else if (n == QLatin1Char('r'))
            out += QLatin1Char('\r');
        else if (n == QLatin1Char('\\'))
            out += QLatin1Char('\\');
        else {
            out += c;
            continue;
        }
        ++i;
    }
    return out;
}

// The keys of the group [Desktop Entry]; the first occurrence of a key counts.
QHash<QString, QString> DesktopEntryGroup(const QStringList& lines) {
    QHash<QString, QString> keys;
    bool inGroup = false;
    for (const QString& raw : lines) {
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        if (line.startsWith(QLatin1Char('['))) {
            if (inGroup) break;
            inGroup = line == QLatin1String("[Desktop Entry]");
            continue;
        }
        if (!inGroup) continue;
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq <= 0) continue;
        const QString key = line.left(eq).trimmed();
        if (!keys.contains(key)) keys.insert(key, UnescapeValue(line.mid(eq + 1).trimmed()));
    }
    return keys;
}

bool IsFieldCode(QChar c) {
    return QStringView(u"fFuUdDnNickvm").contains(c);
}

} // namespace

QStringList DesktopExecWords(const QString& exec) {
    QStringList words;
    QString word;
    bool inWord = false, quoted = false;
    auto finish = [&] {
        if (inWord) words << word;
        word.clear();
        inWord = false;
    };
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec[i];
        if (quoted) {
            if (c == QLatin1Char('"')) {
                quoted = false;
            } else if (c == QLatin1Char('\\') && i + 1 < exec.size() &&
                       QStringView(u"\"`$\\").contains(exec[i + 1])) {
                word += exec[++i];
            } else {
                word += c;
            }
            continue;
        }
        if (c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n')) {
            finish();
        } else if (c == QLatin1Char('"')) {
            quoted = true;
            inWord = true;
        } else if (c == QLatin1Char('%') && i + 1 < exec.size()) {
            // Field codes belong to unquoted text: %% is a percent sign, the others are left out, and a
            // word made of a field code alone is no word.
            const QChar n = exec[++i];
            if (n == QLatin1Char('%')) {
                word += n;
                inWord = true;
            } else if (!IsFieldCode(n)) {
                word += c;
                word += n;
                inWord = true;
            }
        } else {
            word += c;
            inWord = true;
        }
    }
    finish();
    return words;
}

QString FindProgramInPath(const QString& name) {
    return QStandardPaths::findExecutable(name);
}

QString DesktopEntryTarget(QByteArrayView bytes, const ProgramFinder& find) {
    const QHash<QString, QString> keys = DesktopEntryGroup(SplitLines(DecodeText(bytes.toByteArray())));
    const QString type = keys.value(QStringLiteral("Type"));
    if (type == QLatin1String("Link")) return keys.value(QStringLiteral("URL"));
    if (type != QLatin1String("Application")) return {};
    const QStringList words = DesktopExecWords(keys.value(QStringLiteral("Exec")));
    if (words.isEmpty() || words.first().isEmpty()) return {};
    const QString program = words.first();
    if (program.startsWith(QLatin1Char('/'))) return program;
    if (program.contains(QLatin1Char('/')) || !find) return {};
    return find(program);
}

} // namespace pd
