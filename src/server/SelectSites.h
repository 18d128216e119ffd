#pragma once

#include "server/ServerSelection.h"

// What the main window does around the selection dialog.
class SelectSitesHost {
public:
    virtual ~SelectSitesHost() = default;
    virtual void ShowSelection() = 0;  // returns when the dialog is closed
    virtual bool IsConnected() const = 0;
    virtual void ConnectToServer() = 0;  // the site count was told before
    virtual void SetSiteCount(int count) = 0;
    virtual void Rescan() = 0;
    virtual void FocusTree() = 0;
};

// Lets the user choose a server and its web sites, then connects and scans. Unless forced, a connection that
// stands is kept while the server is the same. Nothing happens while the dialog is open already.
void SelectSites(bool force, const ServerSelection& selection, SelectSitesHost& host);
