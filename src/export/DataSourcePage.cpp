#include "export/DataSourcePage.h"

#include "controls/PlainMarkup.h"
#include "controls/PlainText.h"
#include "settings/Registry.h"

#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>

#include <chrono>
#include <utility>

namespace {

constexpr std::string_view kSourcesKey = R"(SOFTWARE\ODBC\ODBC.INI\ODBC Data Sources\)";
constexpr std::chrono::milliseconds kPollEvery{100};
constexpr int kFieldWidth = 40;  // of the text boxes, in average characters

// The box forgets its text first, so that the copy that is overwritten is the last one.
void WipeText(QLineEdit& box)
{
    auto text = box.text();
    box.setText(QString());  // and what could be undone
    text.fill(u'\0');
}

// Leaves no other copy of it.
std::string Utf8(const QString& text)
{
    auto bytes = text.toUtf8();
    std::string copy(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    bytes.fill('\0');
    return copy;
}

}  // namespace

DataSourcePage::DataSourcePage(RegistryStore& store, DatabaseAccess access, QWidget* parent)
    : QWidget(parent),
      Combo1(new QComboBox(this)),
      UserID(new QLineEdit(this)),
      Password(new QLineEdit(this)),
      cmdTest(new QPushButton(tr("&Test Connectivity"), this)),
      lblTestResult(new PlainLabel(QStringLiteral("lblTestResult"), tr("Test"), this)),
      m_access(std::move(access))
{
    setObjectName(QStringLiteral("pagSource"));
    Combo1->setObjectName(QStringLiteral("Combo1"));
    UserID->setObjectName(QStringLiteral("UserID"));
    Password->setObjectName(QStringLiteral("Password"));
    cmdTest->setObjectName(QStringLiteral("cmdTest"));
    Password->setEchoMode(QLineEdit::Password);
    Password->setStyleSheet(QStringLiteral("lineedit-password-character: 42"));  // "*"
    Password->setInputMethodHints(Qt::ImhHiddenText | Qt::ImhNoPredictiveText | Qt::ImhSensitiveData);
    cmdTest->setEnabled(false);
    ListSources(store);
    LayOut();
    setFocusProxy(Combo1);

    connect(Combo1, &QComboBox::currentIndexChanged, this, [this](int index) {
        StopTest();
        cmdTest->setEnabled(index >= 0);
        Q_EMIT Changed();
    });
    for (auto* const box : {UserID, Password})
        connect(box, &QLineEdit::textChanged, this, &DataSourcePage::StopTest);
    connect(cmdTest, &QPushButton::clicked, this, &DataSourcePage::ToggleTest);
    m_poll.setInterval(kPollEvery);
    connect(&m_poll, &QTimer::timeout, this, &DataSourcePage::LookAtTest);
}

DataSourcePage::~DataSourcePage()
{
    Password->disconnect(this);
    WipePassword();
}

void DataSourcePage::ListSources(RegistryStore& store)
{
    for (const auto& [name, driver] : Registry(store).EnumRegistryValues(kLocalMachine, kSourcesKey))
        Combo1->addItem(PlainText(name), QByteArray::fromStdString(name));
    Combo1->setCurrentIndex(-1);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
}

// ---- how the controls are made

void DataSourcePage::AddLabel(QVBoxLayout* to, int index, const QString& caption, QWidget* control)
{
    auto* const label = new QLabel(caption, this);
    label->setObjectName(QStringLiteral("Label1(%1)").arg(index));
    label->setBuddy(control);
    control->setAccessibleName(caption);
    to->addWidget(label);
    to->addWidget(control);
}

QWidget* DataSourcePage::HowToDefineOne()
{
    auto* const hint = new QLabel(this);
    hint->setObjectName(QStringLiteral("lblNoSources"));
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    hint->setText(
        tr("There is no data source yet. Define one in the file .odbc.ini in your home folder or in "
           "/etc/odbc.ini, for example with the command \"odbcinst -i -s -f FILE\", then open this "
           "window again."));
    return hint;
}

void DataSourcePage::LayOut()
{
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    AddLabel(all, 0, tr("Please Select ODBC Data Source:"), Combo1);
    if (Combo1->count() == 0) all->addWidget(HowToDefineOne());
    all->addSpacing(fontMetrics().height() / 2);
    AddLabel(all, 1, tr("Database UserID:"), UserID);
    all->addSpacing(fontMetrics().height() / 2);
    AddLabel(all, 2, tr("Database Password:"), Password);
    all->addSpacing(fontMetrics().height());
    all->addWidget(cmdTest, 0, Qt::AlignLeading);
    all->addWidget(lblTestResult);
    all->addStretch();
    UserID->setMinimumWidth(kFieldWidth * fontMetrics().averageCharWidth());
}

// ---- the login

SharedLogin DataSourcePage::Login() const
{
    return ShareLogin(Combo1->currentData().toByteArray().toStdString(), UserID->text().toStdString(),
                      Utf8(Password->text()));
}

void DataSourcePage::WipePassword()
{
    WipeText(*Password);
}

// ---- the test

void DataSourcePage::ToggleTest()
{
    if (m_test) return StopTest();
    m_test.emplace(m_access, Login());
    m_poll.start();
    cmdTest->setText(tr("&Stop test"));
    lblTestResult->ShowIcon({});
    lblTestResult->ShowText(tr("Connecting...").toStdString());
    lblTestResult->setToolTip({});
}

void DataSourcePage::StopTest()
{
    m_poll.stop();
    const bool wasRunning = m_test.has_value();
    m_test.reset();
    cmdTest->setText(tr("&Test Connectivity"));
    lblTestResult->ShowIcon({});
    lblTestResult->setToolTip({});
    lblTestResult->ShowText(wasRunning ? tr("The test was stopped.").toStdString() : std::string());
}

void DataSourcePage::LookAtTest()
{
    const auto outcome = m_test->Poll();
    if (!outcome) return;
    StopTest();
    ShowTest(outcome->isGood, outcome->text);
}

void DataSourcePage::ShowTest(bool isGood, const std::string& text)
{
    const auto icon = isGood ? QStyle::SP_DialogApplyButton : QStyle::SP_MessageBoxWarning;
    lblTestResult->ShowIcon(style()->standardIcon(icon, nullptr, this));
    lblTestResult->ShowText("  " + text);                                     // beside the icon
    lblTestResult->setToolTip(PlainMarkup(lblTestResult->text().trimmed()));  // where it does not fit
}
