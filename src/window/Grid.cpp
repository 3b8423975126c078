#include "window/Grid.h"

#include "app/files/Values.h"
#include "app/workspace/Workspace.h"

#include <cmath>

namespace pd {

namespace {
// |v| rounded to a whole number; a count that does not fit in 16 bits draws no extra lines.
int LineCount(float v) {
    const auto n = RoundToWord(std::fabs(static_cast<double>(v)));
    return n ? *n : 0;
}
} // namespace

void ShowGrid(Workspace& ws, float stepX, float stepY, Element& target) {
    Element& v0 = ws.VerS(0);
    Element& h0 = ws.HorS(0);
    Element& vi = ws.VerSIndic(0);
    Element& hi = ws.HorSIndic(0);
    for (Element* e : {&v0, &h0, &vi, &hi}) {
        e->setContainer(&target);
        e->BackColor = target.ForeColor.get();
    }
    vi.Visible = true;
    hi.Visible = true;
    v0.Top = 0;
    v0.Height = target.Height.get();
    h0.Left = 0;
    h0.Width = target.Width.get();
    v0.Visible = true;
    h0.Visible = true;
    const int countV = stepX != 0 ? LineCount(target.Width / stepX) : 0;
    const int countH = stepY != 0 ? LineCount(target.Height / stepY) : 0;
    h0.Top = stepY;
    v0.Left = stepX;
    for (int i = 1; i <= countV; ++i) {
        Element& line = ws.VerS.Load(i);
        line.Left = ws.VerS(i - 1).Left + stepX;
        line.Visible = true;
    }
    for (int i = 1; i <= countH; ++i) {
        Element& line = ws.HorS.Load(i);
        line.Top = ws.HorS(i - 1).Top + stepY;
        line.Visible = true;
    }
    ws.GridLinesV = countV;
    ws.GridLinesH = countH;
}

void HideGrid(Workspace& ws) {
    for (ElementFamily* f : {&ws.VerS, &ws.HorS, &ws.VerSIndic, &ws.HorSIndic}) (*f)(0).Visible = false;
    for (int i = ws.GridLinesV; i >= 1; --i) ws.VerS.Unload(i);
    for (int i = ws.GridLinesH; i >= 1; --i) ws.HorS.Unload(i);
    ws.GridLinesV = 0;
    ws.GridLinesH = 0;
}

} // namespace pd
