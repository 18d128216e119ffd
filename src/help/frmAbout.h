#pragma once

#include "contracts/MessageBoxes.h"
#include "help/ProgramStarter.h"

#include <QDialog>

class RegistryStore;

// What the About box uses; all must outlive it.
struct AboutHost {
    RegistryStore& registry;
    ProgramStarter& starter;
    MessageBoxes& boxes;
};

// The About box: the program's title, version and licence, and the way to the system information.
class frmAbout : public QDialog {
    Q_OBJECT

public:
    explicit frmAbout(const AboutHost& host, QWidget* parent = nullptr);

private:
    void ShowSystemInformation();

    AboutHost m_host;
};
