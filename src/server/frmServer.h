#pragma once

#include "controls/PlainLabel.h"
#include "server/ServerCombo.h"
#include "server/ServerSelection.h"
#include "server/SiteListModel.h"
#include "server/SiteListView.h"

#include <QDialog>
#include <QPushButton>

// The modal dialog "Select Server and Web Sites": the window of a ServerSelection for one showing.
class frmServer : public QDialog, private SelectionScreen {
    Q_OBJECT

    ServerSelection& m_selection;
    SiteListModel m_model;

public:
    frmServer(ServerSelection& selection, QWidget* parent);
    ~frmServer() override;

    // Connects and lists the sites, then shows the dialog until the user closes it. What came of it stands
    // in the selection. The dialog does not appear when the selection was unloaded meanwhile.
    void ShowModal();

    void done(int result) override;

    ServerCombo* const cmbServer;
    QPushButton* const cmdConnect;
    SiteListView* const lstSites;
    QPushButton* const cmdSelAll;
    QPushButton* const cmdUnselAll;
    QPushButton* const cmdToggle;
    QPushButton* const cmdOK;
    QPushButton* const cmdCancel;
    PlainLabel* const lblState;  // what the list stands for, or how many sites are checked

private:
    void LayOut();
    void ListenToServerBox();
    void ListenToSites();
    void LeaveServer(Qt::FocusReason reason);
    void SortBy(int column);
    QString StateText() const;

    void ShowServers() override;
    void ShowServerName() override;
    void ShowSites() override { m_model.Reset(); }
    void ShowState() override;
    void Close() override { accept(); }
};
