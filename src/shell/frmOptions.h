#pragma once

#include "contracts/MessageBoxes.h"
#include "settings/Settings.h"

#include <QButtonGroup>
#include <QDialog>
#include <QLineEdit>
#include <QTabWidget>

#include <utility>
#include <vector>

class QVBoxLayout;

// The options dialog: shows the settings in memory and changes them there. Both references must outlive it.
class frmOptions : public QDialog {
    Q_OBJECT

public:
    frmOptions(Settings& settings, MessageBoxes& boxes, QWidget* parent = nullptr);

    // Copies the controls into the settings. False, after a message, when the number of servers is none.
    bool Apply();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QVBoxLayout* AddPage(const QString& caption, const QString& toolTip);
    void BuildStartupPage();
    void BuildServersPage();
    void BuildOtherPage();
    QLayout* BuildServersRow();
    QLayout* BuildButtons();
    void ShowSettings();

    void SelectNextTab();
    void ServersBoxLeft();
    bool CheckServersBox();
    void Confirm();

    Settings& m_settings;
    MessageBoxes& m_boxes;

    QTabWidget* const m_tabs;
    QLineEdit* const m_txtLastServers;
    QButtonGroup* const m_optOnStart;  // by StartOption
    QButtonGroup* const m_optRemReg;   // by RemoteRegPolicy
    std::vector<std::pair<bool Settings::*, QAbstractButton*>> m_saveSwitches;
    QWidget* m_serversPage = nullptr;
    QWidget* m_cancel = nullptr;
    bool m_isChecking = false;
};
