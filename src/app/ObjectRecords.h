#pragma once
// The `[Picture]`, `[Reminder]` and `[Link]` records, shared by the workspace file and the container
// files. Records are read by position: each line after the marker is taken without looking at it.

#include <QByteArray>
#include <QString>

namespace pd {

class Workspace;
class Element;
class LineReader;
class TextWriter;

void WritePictureRecord(Workspace& ws, TextWriter& out, int j);
void WriteReminderRecord(Workspace& ws, TextWriter& out, int j);
void WriteLinkRecord(Workspace& ws, TextWriter& out, int k);

// Each reader runs after its marker line has been consumed; `version` is the file's trimmed marker and
// `owner` is picBack or the grpBorder of the container being read.
void ReadPictureRecord(Workspace& ws, LineReader& in, Element& owner);
void ReadReminderRecord(Workspace& ws, LineReader& in, const QString& version);
void ReadLinkRecord(Workspace& ws, LineReader& in, const QString& version, Element& owner);

// Whether an element's container is `picBack`, or the grpBorder of container i.
bool OnBackground(const Element& e);
bool InContainer(const Element& e, int i);

// The number of shortcut, picture and reminder records in a file's bytes: whether a save makes a file
// gain or lose objects.
qsizetype ObjectRecordCount(const QByteArray& bytes);

} // namespace pd
