#pragma once
// The view of the feeds: a headline panel widget inside each LstRSS member, the feed dialogs and the
// viewer window shown when the core asks, the feed mark on a feed container's shrink icon, the refresh
// label's symbols, and the mouse on the feed elements of the main window.

#include <QElapsedTimer>
#include <QFile>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <functional>
#include <memory>

class QWidget;
class QLabel;

namespace pd {

class Workspace;
class ElementView;
class ElementWidget;
class MenuView;
class RSSViewWindow;

class FeedsView {
  public:
    FeedsView(Workspace& ws, ElementView& view, MenuView& menus, QWidget* mainWindow,
              std::function<void(const QString&, QWidget*)> registerWindow = {});
    ~FeedsView();
    // Connects the feed elements' widgets as the view makes them.
    void wireWidget(ElementWidget& w);
    RSSViewWindow& viewer() { return *viewer_; }

  private:
    void overlay(int i);
    void refreshSymbol();
    void note(const QString& what);

    Workspace& ws_;
    ElementView& view_;
    MenuView& menus_;
    QWidget* main_;
    std::unique_ptr<RSSViewWindow> viewer_;
    QPointer<QLabel> refreshSymbol_;
    std::unique_ptr<QFile> stallFile_;
    std::unique_ptr<QTimer> stallTimer_;
    QElapsedTimer stallClock_;
};

} // namespace pd
