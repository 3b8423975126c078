#pragma once
// A workspace on the fake platform and the hand clock, with its data in a temporary folder.

#include "app/clock/ManualClock.h"
#include "app/workspace/Workspace.h"
#include "support/FakePlatform.h"

#include <QByteArray>
#include <QDir>
#include <QTemporaryDir>

#include <memory>

namespace pd::test {

class TestWorkspace {
public:
    TestWorkspace();
    // Runs the main window's load and LoadSettings, as the start does.
    void start();
    // A fresh workspace over the same folders, as a restart of the program gives.
    void restart();
    // Ends as the unload does.
    void exit();
    // A container made as the menu makes it, at (left, top), its rename field closed with Enter.
    // Returns its index.
    int newContainerAt(float left, float top);

    QString dataPath() const { return QDir(dataHome_.path()).filePath(QStringLiteral("Perchdock")); }
    QString dataFile(const QString& name) const { return QDir(dataPath()).filePath(name); }
    QString programDir() const { return programDir_.path(); }
    // Writes a file under DataPath (making the folder), or reads one; empty when missing.
    void writeData(const QString& name, const QByteArray& bytes) const;
    QByteArray readData(const QString& name) const;
    bool dataExists(const QString& name) const;

    FakePlatform platform;
    ManualClock clock;
    std::unique_ptr<Workspace> ws;

private:
    QTemporaryDir dataHome_;
    QTemporaryDir programDir_;
};

// Joins lines with CR LF, each line ended.
QByteArray CrLf(std::initializer_list<const char*> lines);

} // namespace pd::test
