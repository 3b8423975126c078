#pragma once
// Shared by the shell exchange's tests: a workspace on the fake platform with a folder of real files.

#include "support/TestWorkspace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

inline void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace pd::test {

class ShellTest : public ::testing::Test {
  protected:
    void SetUp() override {
        t.start();
        t.platform.messages.clear();
    }
    Workspace& ws() { return *t.ws; }
    // A file with `text` in the folder `dir` (made when missing) under the temporary folder.
    QString MakeFile(const QString& relative, const QByteArray& text = "x") {
        const QString path = QDir(files.path()).filePath(relative);
        QDir().mkpath(QFileInfo(path).path());
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(text);
        return path;
    }
    QString MakeDir(const QString& relative) {
        const QString path = QDir(files.path()).filePath(relative);
        QDir().mkpath(path);
        return path;
    }
    int Last() { return ws().LinkCount - 1; }
    // A container linked to `folder`.
    int LinkedContainer(const QString& folder, const QString& name = QStringLiteral("Box")) {
        const int c = t.newContainerAt(600, 600);
        ws().lblName(c).Caption = name;
        ws().Containers[static_cast<size_t>(c)].CopyPath = folder;
        return c;
    }
    TestWorkspace t;
    QTemporaryDir files;
};

} // namespace pd::test
