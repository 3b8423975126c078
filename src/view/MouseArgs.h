#pragma once
// Mouse and key arguments as the handlers take them: the button pressed or released (1 left, 2 right,
// 4 middle), the buttons held during a move (the same bits), and the key states (1 Shift, 2 Ctrl, 4 Alt).

#include <QInputEvent>
#include <QMouseEvent>

namespace pd {

inline int Button(const QMouseEvent& ev) {
    switch (ev.button()) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

inline int Held(const QMouseEvent& ev) {
    const Qt::MouseButtons b = ev.buttons();
    return (b & Qt::LeftButton ? 1 : 0) | (b & Qt::RightButton ? 2 : 0) | (b & Qt::MiddleButton ? 4 : 0);
}

inline int Shift(const QInputEvent& ev) {
    const Qt::KeyboardModifiers m = ev.modifiers();
    return (m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) | (m & Qt::AltModifier ? 4 : 0);
}

} // namespace pd
