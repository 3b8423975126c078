#include "support/TestWorkspace.h"

#include "app/MainWindow.h"
#include "app/WorkspaceFile.h"
#include "containers/Containers.h"

#include <QFile>

namespace pd::test {

TestWorkspace::TestWorkspace() {
    platform.dataDir = dataHome_.path();
    platform.programDir = programDir_.path();
    ws = std::make_unique<Workspace>(platform, clock);
}

void TestWorkspace::start() {
    MainWindowLoad(*ws);
    LoadSettings(*ws);
}

void TestWorkspace::restart() {
    ws = std::make_unique<Workspace>(platform, clock);
}

void TestWorkspace::exit() { UnloadMainWindow(*ws); }

int TestWorkspace::newContainerAt(float left, float top) {
    ws->DropX = left;
    ws->DropY = top;
    mnuNew_Click(*ws);
    const int n = ws->ContainerCount - 1;
    RenameFinished(*ws, n, false);
    return n;
}

void TestWorkspace::writeData(const QString& name, const QByteArray& bytes) const {
    const QString path = dataFile(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (f.open(QIODevice::WriteOnly)) f.write(bytes);
}

QByteArray TestWorkspace::readData(const QString& name) const {
    QFile f(dataFile(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool TestWorkspace::dataExists(const QString& name) const { return QFile::exists(dataFile(name)); }

QByteArray CrLf(std::initializer_list<const char*> lines) {
    QByteArray out;
    for (const char* l : lines) {
        out += l;
        out += "\r\n";
    }
    return out;
}

} // namespace pd::test
