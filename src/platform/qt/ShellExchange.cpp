// The shell exchange of the Linux desktop: file lists on the clipboard in the forms file managers
// use, file operations on a worker thread under a progress window that the user can cancel, and file
// drags out to other programs.

#include "platform/qt/ShellExchange.h"
#include "platform/qt/QtPlatform.h"
#include "shell/FileCopy.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QEventLoop>
#include <QFileInfo>
#include <QMimeData>
#include <QPointer>
#include <QProgressDialog>
#include <QThread>
#include <QUrl>

#include <atomic>
#include <memory>

namespace pd {

namespace {

// The paths as file URLs; what is not an absolute local path is left out.
QList<QUrl> FileUrls(const QStringList& paths) {
    QList<QUrl> urls;
    for (const QString& p : paths)
        if (QFileInfo(p).isAbsolute()) urls << QUrl::fromLocalFile(p);
    return urls;
}

QMimeData* FileListData(const QStringList& paths) {
    auto* data = new QMimeData;
    const QList<QUrl> urls = FileUrls(paths);
    // text/uri-list, which every file manager takes.
    data->setUrls(urls);
    // GNOME's and its kin's own form: the action, then one URL a line.
    QByteArray gnome("copy");
    for (const QUrl& u : urls)
        gnome += '\n' + u.toEncoded();
    data->setData(QStringLiteral("x-special/gnome-copied-files"), gnome);
    return data;
}

} // namespace

QStringList LocalFilesOf(const QMimeData* data) {
    QStringList files;
    if (!data) return files;
    QList<QUrl> urls;
    if (data->hasUrls()) {
        urls = data->urls();
    } else if (data->hasFormat(QStringLiteral("x-special/gnome-copied-files"))) {
        const QList<QByteArray> lines =
            data->data(QStringLiteral("x-special/gnome-copied-files")).split('\n');
        for (int k = 1; k < lines.size(); ++k)
            if (!lines[k].trimmed().isEmpty()) urls << QUrl::fromEncoded(lines[k].trimmed());
    }
    for (const QUrl& u : urls)
        if (u.isLocalFile()) files << u.toLocalFile();
    return files;
}

bool QtPlatform::setClipboardFiles(const QStringList& paths) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (!clipboard) return false;
    clipboard->setMimeData(FileListData(paths));
    return true;
}

QStringList QtPlatform::clipboardFiles() const {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    return clipboard ? LocalFilesOf(clipboard->mimeData()) : QStringList();
}

FileOpResult QtPlatform::fileOperation(const FileOpRequest& op) {
    auto cancel = std::make_shared<std::atomic<bool>>(false);
    auto result = std::make_shared<FileOpResult>();
    const int pause = fileOpChunkPauseMs;

    QPointer<QProgressDialog> dialog;
    if (op.flags & FileOp::SimpleProgress) {
        dialog = new QProgressDialog;
        dialog->setObjectName(QStringLiteral("frmFileProgress"));
        dialog->setWindowTitle(op.title);
        dialog->setLabelText(op.title);
        dialog->setCancelButtonText(QStringLiteral("Cancel"));
        dialog->setRange(0, op.func == FileOp::Copy ? 1000 : 0);
        dialog->setMinimumDuration(300);
        dialog->setAutoClose(false);
        dialog->setAutoReset(false);
        dialog->setWindowModality(Qt::ApplicationModal);
        dialog->setWindowFlag(Qt::WindowStaysOnTopHint, true);
        QObject::connect(dialog, &QProgressDialog::canceled, dialog, [cancel] { cancel->store(true); });
    }

    QObject* receiver = dialog ? static_cast<QObject*>(dialog.data()) : qApp;
    QThread* worker = QThread::create([op, cancel, result, receiver, pause] {
        QPointer<QObject> target(receiver);
        *result = RunFileOperation(
            op, cancel.get(), [target, pause](qint64 done, qint64 total, const QString& file) {
                if (pause > 0) QThread::msleep(static_cast<unsigned long>(pause));
                auto* d = qobject_cast<QProgressDialog*>(target.data());
                if (!d) return;
                const int value = total > 0 ? static_cast<int>(done * 1000 / total) : 0;
                const QString name = QFileInfo(file).fileName();
                QMetaObject::invokeMethod(
                    d,
                    [d, value, name] {
                        d->setLabelText(name);
                        if (d->maximum() > 0) d->setValue(value);
                    },
                    Qt::QueuedConnection);
            });
    });
    QEventLoop loop;
    QObject::connect(worker, &QThread::finished, &loop, &QEventLoop::quit);
    worker->start();
    // The window keeps painting and the progress window answers while the worker runs.
    if (!worker->isFinished()) loop.exec();
    worker->wait();
    delete worker;
    // The copy decides what a cancel did: one that came after the last chunk changed nothing.
    if (dialog) {
        QObject::disconnect(dialog, nullptr, nullptr, nullptr);
        delete dialog;
    }
    return *result;
}

int QtPlatform::startFileDrag(const QStringList& paths) {
    QObject* source = nullptr;
    auto it = windows_.find(QStringLiteral("frmMain"));
    if (it != windows_.end() && it->second) source = it->second;
    if (!source) source = QApplication::activeWindow();
    if (!source) return 0;
    auto* drag = new QDrag(source);
    drag->setMimeData(FileListData(paths));
    switch (drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::CopyAction)) {
    case Qt::CopyAction:
    case Qt::LinkAction:
        return 1;
    case Qt::MoveAction:
        return 2;
    default:
        return 0;
    }
}

} // namespace pd
