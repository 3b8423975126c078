#pragma once
// Drags from other programs onto the workspace (files, text, web addresses through XDND) and the
// in-program drag's passage over the containers and the background.

class QMimeData;
class QPoint;

namespace pd {

struct InputContext;
class ElementWidget;
struct DropData;

// Makes the background and the containers take drops and routes the drag events to the handlers.
void WireDropInput(InputContext& ctx, ElementWidget& w);
// What a drag or clipboard data holds, as the handlers take it: the local files it lists; without
// files, a web address or plain text as the text.
DropData DropDataOf(const QMimeData* data);
// The carried element passes over the owner under the global point: containers show the icons again,
// the background may turn a shortcut of a folder-link container into a file drag. Returns true when
// that drag took over and the carrying ended.
bool CarriedOver(InputContext& ctx, const QPoint& global);

} // namespace pd
