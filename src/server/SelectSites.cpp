#include "server/SelectSites.h"

void SelectSites(bool force, const ServerSelection& selection, SelectSitesHost& host)
{
    if (selection.IsLoaded()) return;
    host.ShowSelection();
    // Also when the user cancels: it counts what the dialog listed last.
    host.SetSiteCount(selection.SiteCount());
    if (!selection.SitesConfirmed()) return;
    if (force || selection.ServerChanged() || !host.IsConnected()) host.ConnectToServer();
    host.Rescan();
    host.FocusTree();
}
