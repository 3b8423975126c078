#include "platform/qt/X11HotKey.h"

#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>

namespace pd {

namespace {
constexpr uint32_t kKeysymS = 0x73; // XK_s
constexpr uint16_t kSuper = XCB_MOD_MASK_4;
// The lock keys that may be on while the user presses the hot key: Caps Lock and Num Lock (Mod2).
constexpr uint16_t kLockCombos[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

xcb_connection_t* Conn(void* c) {
    return static_cast<xcb_connection_t*>(c);
}

// The key code that gives the letter s, from the server's keyboard map; 0 when none does.
xcb_keycode_t KeycodeOfS(xcb_connection_t* c) {
    const xcb_setup_t* setup = xcb_get_setup(c);
    const xcb_keycode_t first = setup->min_keycode;
    const int count = setup->max_keycode - setup->min_keycode + 1;
    xcb_get_keyboard_mapping_reply_t* map = xcb_get_keyboard_mapping_reply(
        c, xcb_get_keyboard_mapping(c, first, static_cast<uint8_t>(count)), nullptr);
    if (!map) return 0;
    const xcb_keysym_t* syms = xcb_get_keyboard_mapping_keysyms(map);
    const int per = map->keysyms_per_keycode;
    xcb_keycode_t found = 0;
    for (int k = 0; k < count && !found; ++k)
        for (int j = 0; j < per; ++j)
            if (syms[k * per + j] == kKeysymS) {
                found = static_cast<xcb_keycode_t>(first + k);
                break;
            }
    std::free(map);
    return found;
}
} // namespace

X11HotKey::X11HotKey(std::function<void()> onPress) : onPress_(std::move(onPress)) {}

X11HotKey::~X11HotKey() {
    release();
}

bool X11HotKey::grab() {
    if (grabbed_) return true;
    auto* x11 = qGuiApp ? qGuiApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    if (!x11 || !x11->connection()) return false;
    xcb_connection_t* c = x11->connection();
    keycode_ = KeycodeOfS(c);
    if (!keycode_) return false;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    bool ok = true;
    for (uint16_t locks : kLockCombos) {
        xcb_generic_error_t* err =
            xcb_request_check(c, xcb_grab_key_checked(c, 1, root_, kSuper | locks, keycode_,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        if (err) {
            ok = false;
            std::free(err);
        }
    }
    connection_ = c;
    grabbed_ = true;
    if (!ok) {
        // Another program holds the key: stay silently without it.
        release();
        return false;
    }
    QCoreApplication::instance()->installNativeEventFilter(this);
    return true;
}

void X11HotKey::release() {
    if (!grabbed_) return;
    if (QCoreApplication::instance()) QCoreApplication::instance()->removeNativeEventFilter(this);
    for (uint16_t locks : kLockCombos)
        xcb_ungrab_key(Conn(connection_), keycode_, root_, kSuper | locks);
    xcb_flush(Conn(connection_));
    grabbed_ = false;
}

bool X11HotKey::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t") return false;
    auto* ev = static_cast<xcb_generic_event_t*>(message);
    if ((ev->response_type & 0x7F) != XCB_KEY_PRESS) return false;
    auto* key = reinterpret_cast<xcb_key_press_event_t*>(ev);
    if (key->detail != keycode_ || !(key->state & kSuper) || key->event != root_) return false;
    if (onPress_) onPress_();
    return true;
}

} // namespace pd
