#pragma once
// The global hot key Super+S on X11: a passive grab of the key on the root window, with or without
// Caps Lock and Num Lock, seen by a native event filter. Under another windowing system (Wayland, the
// offscreen platform of the tests) the grab is refused and nothing happens.

#include <QAbstractNativeEventFilter>

#include <functional>

namespace pd {

class X11HotKey : public QAbstractNativeEventFilter {
  public:
    explicit X11HotKey(std::function<void()> onPress);
    ~X11HotKey() override;
    X11HotKey(const X11HotKey&) = delete;
    X11HotKey& operator=(const X11HotKey&) = delete;

    // Grabs the key; false where there is no X11 connection or the key is taken by another program.
    bool grab();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

  private:
    void release();

    std::function<void()> onPress_;
    void* connection_ = nullptr;
    unsigned root_ = 0;
    unsigned char keycode_ = 0;
    bool grabbed_ = false;
};

} // namespace pd
