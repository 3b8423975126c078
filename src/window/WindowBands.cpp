#include "window/WindowBands.h"

namespace pd {

namespace {
// Columns: 0 left (X < 160), 1 middle, 2 right (X > Width - 160). Rows: 0 top (Y < 160), 1 the title
// band (Y < 300), 2 the sides, 3 bottom (Y > Height - 160).
int Column(float X, float Width) { return X < 160 ? 0 : (X <= Width - 160 ? 1 : 2); }

int Row(float Y, float Height) {
    if (Y < 160) return 0;
    if (Y < 300) return 1;
    if (Y <= Height - 160) return 2;
    return 3;
}
} // namespace

int WindowHitTest(float X, float Y, float Width, float Height) {
    static const int table[4][3] = {{13, 12, 14}, {2, 2, 2}, {10, 0, 11}, {16, 15, 17}};
    return table[Row(Y, Height)][Column(X, Width)];
}

int WindowPointer(float X, float Y, float Width, float Height) {
    // The 6 along the title band and at the lower left follow from the table as it stands.
    static const int table[4][3] = {{8, 7, 6}, {6, 6, 6}, {9, 0, 9}, {6, 7, 8}};
    return table[Row(Y, Height)][Column(X, Width)];
}

} // namespace pd
