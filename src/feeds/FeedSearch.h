#pragma once
// frmRSSSearch: searches the headlines and descriptions of every reader as the user types and lists
// the results by feed; the terms searched become the recent terms, which are also the highlight list.

#include <QString>

#include <functional>

namespace pd {

class Workspace;

struct FrmRSSSearch {
    QString Caption = QStringLiteral("Search RSS");
    QString txtSearch;
    bool chkHeadline = true;
    bool chkFull = false;
    // The results, as text.
    QString txtRSS;
    int Results = 0;
    float Width = 7500, Height = 6000;
    // Called after the results or the caption changed; set by the view.
    std::function<void()> onChanged;
};

inline const char* const kNoRecentSearch = "[No Recent Search]";

void mnuRSSSearch_Click(Workspace& ws);
void mnuRSSSearchItem_Click(Workspace& ws, int index);
void mnuClearRecentSearchTerms_Click(Workspace& ws);
void RSSSearch_Load(Workspace& ws, FrmRSSSearch& f);
void txtSearch_Change(Workspace& ws, FrmRSSSearch& f);
void RSSSearch_CheckClick(Workspace& ws, FrmRSSSearch& f);
void RSSSearch_Unload(Workspace& ws, FrmRSSSearch& f);

// The recent terms: member 0 and the visible members after it.
int RecentTermCount(Workspace& ws);

} // namespace pd
