#include "shell/frmOptions.h"

#include "settings/OptionChoices.h"

#include <QCheckBox>
#include <QEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

// In characters:
constexpr int kPagesWidth = 52;
constexpr int kNumberWidth = 6;

template <class Choice>
void AddOption(QGroupBox* frame, QButtonGroup* options, Choice choice, const QString& caption)
{
    const int index = static_cast<int>(choice);
    auto* const option = new QRadioButton(caption);
    option->setObjectName(QStringLiteral("%1(%2)").arg(options->objectName()).arg(index));
    option->setFocusPolicy(Qt::ClickFocus);
    options->addButton(option, index);
    // The tab key leads to the chosen one of them, not to the first.
    QObject::connect(option, &QRadioButton::toggled, option, [option](bool isChosen) {
        option->setFocusPolicy(isChosen ? Qt::StrongFocus : Qt::ClickFocus);
    });
    frame->layout()->addWidget(option);
}

QGroupBox* AddFrame(QVBoxLayout* page, const QString& caption)
{
    auto* const frame = new QGroupBox(caption);
    frame->setLayout(new QVBoxLayout);
    page->addWidget(frame);
    return frame;
}

}  // namespace

frmOptions::frmOptions(Settings& settings, MessageBoxes& boxes, QWidget* parent)
    : QDialog(parent),
      m_settings(settings),
      m_boxes(boxes),
      m_tabs(new QTabWidget(this)),
      m_txtLastServers(new QLineEdit),
      m_optOnStart(new QButtonGroup(this)),
      m_optRemReg(new QButtonGroup(this))
{
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(tr("Quillet Options"));
    m_tabs->setObjectName(QStringLiteral("tabOptions"));
    m_tabs->setMinimumWidth(fontMetrics().averageCharWidth() * kPagesWidth);
    BuildStartupPage();
    BuildServersPage();
    BuildOtherPage();

    auto* const all = new QVBoxLayout(this);
    all->addWidget(m_tabs);
    all->addLayout(BuildButtons());
    all->setSizeConstraint(QLayout::SetFixedSize);

    auto* const nextTab = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Tab), this);
    connect(nextTab, &QShortcut::activated, this, &frmOptions::SelectNextTab);
    ShowSettings();
}

// ---- how the controls are made

QVBoxLayout* frmOptions::AddPage(const QString& caption, const QString& toolTip)
{
    auto* const page = new QWidget;
    m_tabs->setTabToolTip(m_tabs->addTab(page, caption), toolTip);
    return new QVBoxLayout(page);
}

void frmOptions::BuildStartupPage()
{
    auto* const page = AddPage(tr("Startup"), tr("Application behavior on start"));
    auto* const frame = AddFrame(page, tr("On &Start"));
    m_optOnStart->setObjectName(QStringLiteral("optOnStart"));
    AddOption(frame, m_optOnStart, StartOption::SelectDialog, tr("&Bring up the \"Select server\" dialog"));
    AddOption(frame, m_optOnStart, StartOption::LastServer, tr("Connect to the &last accessed server"));
    AddOption(frame, m_optOnStart, StartOption::LocalServer, tr("&Connect to the local server"));
    page->addStretch();
}

QLayout* frmOptions::BuildServersRow()
{
    auto* const before = new QLabel(tr("&Remember "));
    before->setBuddy(m_txtLastServers);
    auto* const after = new QLabel(tr("last accessed servers"));
    m_txtLastServers->setObjectName(QStringLiteral("txtLastServers"));
    m_txtLastServers->setAccessibleName(before->text().remove(u'&') + after->text());
    m_txtLastServers->setFixedWidth(m_txtLastServers->fontMetrics().averageCharWidth() * kNumberWidth +
                                    m_txtLastServers->fontMetrics().height());
    m_txtLastServers->installEventFilter(this);

    auto* const row = new QHBoxLayout;
    row->addWidget(before);
    row->addWidget(m_txtLastServers);
    row->addSpacing(before->fontMetrics().horizontalAdvance(u' '));  // as before the box
    row->addWidget(after);
    row->addStretch();
    return row;
}

void frmOptions::BuildServersPage()
{
    auto* const page = AddPage(tr("Servers"), tr("Server Options"));
    m_serversPage = page->parentWidget();
    page->addLayout(BuildServersRow());
    page->addSpacing(page->spacing());
    auto* const frame = AddFrame(page, tr("Start Remote Registry &service"));
    m_optRemReg->setObjectName(QStringLiteral("optRemReg"));
    AddOption(frame, m_optRemReg, RemoteRegPolicy::Never, tr("&Never"));
    AddOption(frame, m_optRemReg, RemoteRegPolicy::Prompt, tr("&Prompt"));
    AddOption(frame, m_optRemReg, RemoteRegPolicy::Automatically, tr("&Automatically"));
    page->addStretch();
}

void frmOptions::BuildOtherPage()
{
    auto* const page = AddPage(tr("Other"), tr("Other Options"));
    auto* const frame = AddFrame(page, tr("Save &States"));
    const struct {
        const char* name;
        QString caption;
        bool Settings::*setting;
    } boxes[] = {
        {"chkSaveWnd", tr("&Window position"), &Settings::SaveWindowPos},
        {"chkSavePanels", tr("&Panels"), &Settings::SavePanels},
        {"chkSaveView", tr("&View"), &Settings::SaveView},
        {"chkSaveAutoStats", tr("&Auto-refresh"), &Settings::SaveAutoStats},
    };
    for (const auto& box : boxes) {
        auto* const check = new QCheckBox(box.caption);
        check->setObjectName(QLatin1String(box.name));
        frame->layout()->addWidget(check);
        m_saveSwitches.emplace_back(box.setting, check);
    }
    page->addStretch();
}

QLayout* frmOptions::BuildButtons()
{
    auto* const row = new QHBoxLayout;
    row->addStretch();
    const auto add = [this, row](const char* name, const QString& caption, auto command) {
        auto* const button = new QPushButton(caption);
        button->setObjectName(QLatin1String(name));
        connect(button, &QPushButton::clicked, this, command);
        row->addWidget(button);
        return button;
    };
    add("cmdOK", tr("OK"), &frmOptions::Confirm)->setDefault(true);
    m_cancel = add("cmdCancel", tr("Cancel"), &frmOptions::reject);
    add("cmdApply", tr("&Apply"), &frmOptions::Apply);
    return row;
}

void frmOptions::ShowSettings()
{
    auto* const onStart = m_optOnStart->button(static_cast<int>(StartOptionOf(m_settings)));
    onStart->setChecked(true);
    onStart->setFocus();
    m_txtLastServers->setText(QString::number(m_settings.RememberServers));
    m_optRemReg->button(static_cast<int>(m_settings.StartRemoteReg))->setChecked(true);
    for (const auto& [setting, check] : m_saveSwitches) check->setChecked(m_settings.*setting);
}

// ---- what the user does

void frmOptions::SelectNextTab()
{
    m_tabs->setCurrentIndex((m_tabs->currentIndex() + 1) % m_tabs->count());
}

bool frmOptions::eventFilter(QObject* watched, QEvent* event)
{
    // Not before the new control has the focus: a message in the middle of the change would confuse both.
    if (watched == m_txtLastServers && event->type() == QEvent::FocusOut)
        QMetaObject::invokeMethod(this, &frmOptions::ServersBoxLeft, Qt::QueuedConnection);
    return QDialog::eventFilter(watched, event);
}

// The focus may also have gone to another window or a menu: then it is still the box's in this window.
void frmOptions::ServersBoxLeft()
{
    if (isVisible() && focusWidget() != m_txtLastServers && focusWidget() != m_cancel) CheckServersBox();
}

bool frmOptions::CheckServersBox()
{
    if (ParseRememberServers(m_txtLastServers->text().toStdString())) return true;
    if (m_isChecking) return false;  // the message is being shown
    m_isChecking = true;
    m_tabs->setCurrentWidget(m_serversPage);
    m_txtLastServers->setFocus();
    m_txtLastServers->selectAll();
    m_boxes.Show(tr("'Remember last servers' value must be a number in 0..200 range").toStdString(),
                 BoxStyle::Information, windowTitle().toStdString());
    m_isChecking = false;
    return false;
}

bool frmOptions::Apply()
{
    if (!CheckServersBox()) return false;
    SetStartOption(m_settings, static_cast<StartOption>(m_optOnStart->checkedId()));
    m_settings.RememberServers = *ParseRememberServers(m_txtLastServers->text().toStdString());
    m_settings.StartRemoteReg = static_cast<RemoteRegPolicy>(m_optRemReg->checkedId());
    for (const auto& [setting, check] : m_saveSwitches) m_settings.*setting = check->isChecked();
    return true;
}

void frmOptions::Confirm()
{
    if (Apply()) accept();
}
