#pragma once
// Pictures on screens of more than one device pixel per logical pixel.
//
// Our own images ship a twin of twice the pixels beside them: "fold@2x.png" next to "fold.gif" (a theme
// names only the plain file; the twin is optional). A picture is loaded for the device pixel ratio of
// the screen it is drawn on: at a ratio above 1 from its twin where there is one, otherwise scaled
// smoothly from the plain file, and marked with the ratio, so that it covers the same logical pixels as
// the plain file does at a ratio of 1 and is drawn at the screen's own resolution. The plain file's size
// stays the picture's size in logical pixels (and in twips) whatever the ratio.

#include <QIcon>
#include <QPixmap>
#include <QSize>
#include <QString>

namespace pd {

// The twin of `path` of twice the pixels, "dir/name@2x.png" or "dir/name@2x.<suffix>"; empty when
// neither exists.
QString DoubleResolutionFile(const QString& path);

// The picture of `path` for a device pixel ratio: its devicePixelRatio is `dpr` (or its twin's own
// ratio) and its logical size that of the plain file. A null pixmap when the file is not a picture.
QPixmap LoadPicture(const QString& path, qreal dpr);

// `picture` scaled smoothly to fill `logical` pixels at `dpr` device pixels each, for stretched drawing.
QPixmap FillPicture(const QPixmap& picture, QSize logical, qreal dpr);

// An icon of the file and of its twin, for Qt's icon drawing to choose from by size and ratio.
QIcon LoadIcon(const QString& path);

// A picture that a widget draws, loaded again when the ratio of the widget's screen changes, and
// scaled once to a stretched size.
class ScreenPicture {
  public:
    // The file to show, read again at the next use; an empty path shows nothing.
    void setFile(const QString& path);
    const QString& file() const { return path_; }
    // The picture at its own logical size for the ratio `dpr`.
    const QPixmap& at(qreal dpr);
    // The picture stretched to `logical` pixels for the ratio `dpr`.
    const QPixmap& stretched(QSize logical, qreal dpr);

  private:
    QString path_;
    QPixmap picture_;
    qreal dpr_ = 0;
    QPixmap stretched_;
    QSize stretchedSize_;
    qreal stretchedDpr_ = 0;
};

} // namespace pd
