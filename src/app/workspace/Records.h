#pragma once
// What no element can show: one record per container, shortcut and desk object, indexed as their
// elements. Lengths are twips as 32-bit integers; booleans are plain bools here (the files carry them as
// "1"/"0" or words).

#include <QString>

#include <cstdint>

namespace pd {

struct ContainerRecord {
    int32_t X = 0;
    int32_t Y = 0;
    // Height and width of the unfolded, unshrunk container.
    int32_t H = 0;
    int32_t W = 0;
    // File whose icon stands for the container when it is shrunk (file key "[Icon]").
    QString IconPath;
    // Container it sits in; -1 on the background.
    int16_t ParentIndex = -1;
    // Folder of a folder-link container, or a feed container's address.
    QString CopyPath;
    bool RefreshOnExpand = false;
    bool KeepX = false;
    bool Flipped = false;
    bool TagHidden = false;
    bool IsFeed = false;
    int16_t FeedIndex = 0;
};

struct LinkRecord {
    // 1 web address, 2 file or folder; compared with exactly 1.0 and 2.0.
    float LinkType = 0;
    // Index of the PicIcon member that draws the icon; counted apart from Link.
    int16_t IconIndex = 0;
    // Target; empty marks a deleted slot.
    QString LinkPath;
    QString LinkParam;
    bool Bold = false;
    // 0x00BBGGRR, or -1 to follow the container's fore colour.
    int32_t LinkColor = -1;
    int16_t Size = 0;
    bool Confirm = false;
    // 1 runs LinkParam through the shell.
    int16_t Command = 0;
    QString LinkIcon;
    // Comma-separated tags ("[GROUP]").
    QString Tags;
    // Tag of the mark on launch ("[EXCLUSIVE]"), empty for none.
    QString MarkTag;
};

struct DeskObjectRecord {
    QString PicPath;
    bool IsReminder = false;
    QString Date;
    QString Time;
    QString Note;
};

} // namespace pd
