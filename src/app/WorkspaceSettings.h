#pragma once
// The global settings of the workspace file as one table, in the order the file holds them: each row
// writes its value line and reads it back, so that the reader and the writer cannot drift apart.

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace pd {

class Workspace;

// What a save needs beyond the workspace.
struct SaveState {
    bool forExit = false;
    // The window was hidden when an exit save began.
    bool wasHidden = false;
};

// Values the key loop only collects, for the steps after it.
struct LoadState {
    std::optional<QString> Hidden; // untrimmed
    std::optional<QString> WindowState;
    std::optional<QString> X, Y, W, H;
    std::optional<QString> Locked;
};

struct SettingRow {
    const char* key;
    std::function<QString(Workspace&, SaveState&)> write;
    // Takes the raw value line; a value that does not convert leaves the setting as it was. Empty for
    // a key that the reader does not know.
    std::function<void(Workspace&, const QString&, LoadState&)> read;
};

// The rows from `[Hidden]` to `[RSSUseProxy]`, in file order.
const std::vector<SettingRow>& SettingRows();

// Loads member n of the recent-search menu with a caption and shows it.
void LoadRSSSearchMenuItem(Workspace& ws, int n, const QString& text);

} // namespace pd
