// A small stand-in for a file manager in the end-to-end tests of the shell exchange.
//   shell_helper drag FILE...   shows a window "Drag Source" at (1080, 600); a drag that starts in it
//                               carries the files as a file manager does (text/uri-list and the paths
//                               as text) and prints "drop-action N" (0 none, 1 copy, 2 move, 4 link)
//                               when it ends, then quits.
//   shell_helper drop           shows a window "Drop Target" at (1110, 620) that takes a file drop as a
//                               file manager's folder view does; prints "dropped URI..." (the list, one
//                               line) and quits.
//   shell_helper paste FOLDER   reads the clipboard as a file manager's Paste does: prints its formats,
//                               then copies every local file it lists into FOLDER ("pasted NAME").
//                               Exits 0 when it pasted a file, 1 when the clipboard listed none within
//                               ten seconds.

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QDrag>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QThread>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include <cstdio>

namespace {

class DragSource : public QLabel {
  public:
    explicit DragSource(QStringList files) : files_(std::move(files)) {
        setText(QStringLiteral("drag me"));
        setAlignment(Qt::AlignCenter);
        setStyleSheet(QStringLiteral("background: #ffd040;"));
    }

  protected:
    void mousePressEvent(QMouseEvent* ev) override { press_ = ev->position().toPoint(); }
    void mouseMoveEvent(QMouseEvent* ev) override {
        if (!(ev->buttons() & Qt::LeftButton) || started_) return;
        if ((ev->position().toPoint() - press_).manhattanLength() < QApplication::startDragDistance()) return;
        started_ = true;
        auto* data = new QMimeData;
        QList<QUrl> urls;
        for (const QString& f : files_)
            urls << QUrl::fromLocalFile(f);
        data->setUrls(urls);
        data->setText(files_.join(QLatin1Char('\n')));
        auto* drag = new QDrag(this);
        drag->setMimeData(data);
        const Qt::DropAction action =
            drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::CopyAction);
        std::printf("drop-action %d\n", static_cast<int>(action));
        std::fflush(stdout);
        QApplication::quit();
    }

  private:
    QStringList files_;
    QPoint press_;
    bool started_ = false;
};

class DropTarget : public QLabel {
  public:
    DropTarget() {
        setText(QStringLiteral("drop here"));
        setAlignment(Qt::AlignCenter);
        setStyleSheet(QStringLiteral("background: #40d0ff;"));
        setAcceptDrops(true);
    }

  protected:
    void dragEnterEvent(QDragEnterEvent* ev) override {
        if (!ev->mimeData()->hasUrls()) return;
        ev->setDropAction(Qt::CopyAction);
        ev->accept();
    }
    void dragMoveEvent(QDragMoveEvent* ev) override {
        ev->setDropAction(Qt::CopyAction);
        ev->accept();
    }
    void dropEvent(QDropEvent* ev) override {
        QStringList uris;
        for (const QUrl& u : ev->mimeData()->urls())
            uris << QString::fromLatin1(u.toEncoded());
        std::printf("dropped %s\n", qPrintable(uris.join(QLatin1Char(' '))));
        std::fflush(stdout);
        ev->setDropAction(Qt::CopyAction);
        ev->accept();
        QTimer::singleShot(200, qApp, &QApplication::quit);
    }
};

int Paste(const QString& folder) {
    QElapsedTimer clock;
    clock.start();
    QStringList files;
    while (clock.elapsed() < 10000) {
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        if (data && data->hasUrls()) {
            std::printf("formats %s\n", qPrintable(data->formats().join(QLatin1Char(' '))));
            std::printf(
                "gnome-copied-files %s\n",
                data->data(QStringLiteral("x-special/gnome-copied-files")).replace('\n', '|').constData());
            for (const QUrl& u : data->urls())
                if (u.isLocalFile()) files << u.toLocalFile();
            break;
        }
        QApplication::processEvents();
        QThread::msleep(100);
    }
    int pasted = 0;
    for (const QString& f : files) {
        const QString target = QDir(folder).filePath(QFileInfo(f).fileName());
        if (QFile::copy(f, target)) {
            std::printf("pasted %s\n", qPrintable(QFileInfo(f).fileName()));
            ++pasted;
        }
    }
    std::fflush(stdout);
    return pasted > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QStringList args = QApplication::arguments();
    if (args.size() >= 3 && args[1] == QLatin1String("paste")) return Paste(args[2]);
    if (args.size() >= 2 && args[1] == QLatin1String("drop")) {
        DropTarget w;
        w.setWindowTitle(QStringLiteral("Drop Target"));
        w.setGeometry(1110, 620, 150, 150);
        w.show();
        return QApplication::exec();
    }
    if (args.size() >= 3 && args[1] == QLatin1String("drag")) {
        DragSource w(args.mid(2));
        w.setWindowTitle(QStringLiteral("Drag Source"));
        w.setGeometry(1080, 600, 180, 150);
        w.show();
        return QApplication::exec();
    }
    std::fprintf(stderr, "usage: shell_helper drag FILE... | drop | paste FOLDER\n");
    return 2;
}
