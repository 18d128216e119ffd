#pragma once

#include "controls/PlainLabel.h"
#include "export/ConnectionTest.h"
#include "export/DatabaseAccess.h"
#include "export/SecretText.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include <optional>

class QLabel;
class QVBoxLayout;
class RegistryStore;

// The wizard's first page: which data source, and who asks.
class DataSourcePage : public QWidget {
    Q_OBJECT

public:
    DataSourcePage(RegistryStore& store, DatabaseAccess access, QWidget* parent);
    ~DataSourcePage() override;

    bool IsComplete() const { return Combo1->currentIndex() >= 0; }
    SharedLogin Login() const;
    void StopTest();  // what it finds out is not shown any more
    void WipePassword();

    QComboBox* const Combo1;
    QLineEdit* const UserID;
    QLineEdit* const Password;
    QPushButton* const cmdTest;
    PlainLabel* const lblTestResult;

Q_SIGNALS:
    void Changed();  // what IsComplete() answers

private:
    void ListSources(RegistryStore& store);
    void LayOut();
    void AddLabel(QVBoxLayout* to, int index, const QString& caption, QWidget* control);
    QWidget* HowToDefineOne();
    void ToggleTest();
    void LookAtTest();
    void ShowTest(bool isGood, const std::string& text);

    const DatabaseAccess m_access;
    std::optional<ConnectionTest> m_test;
    QTimer m_poll;
};
