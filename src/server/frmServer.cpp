#include "server/frmServer.h"

#include "controls/PlainText.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 94;      // of the dialog at first, in average characters
constexpr int kHeight = 27;     // in lines of text
constexpr int kNameShare = 48;  // of the list's width, in percent

QPushButton* Button(const char* name, const QString& caption, QWidget* parent)
{
    auto* const button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

QLabel* LabelOf(QWidget* control, const QString& caption, QWidget* parent)
{
    auto* const label = new QLabel(caption, parent);
    label->setBuddy(control);
    return label;
}

}  // namespace

// The controls are made in the order in which a user meets them; that is the order of the Tab key.
frmServer::frmServer(ServerSelection& selection, QWidget* parent)
    : QDialog(parent),
      m_selection(selection),
      m_model(selection),
      cmbServer(new ServerCombo(this)),
      cmdConnect(Button("cmdConnect", tr("&Connect"), this)),
      lstSites(new SiteListView(m_model, this)),
      cmdSelAll(Button("cmdSelAll", tr("&Select All"), this)),
      cmdUnselAll(Button("cmdUnselAll", tr("&Unselect All"), this)),
      cmdToggle(Button("cmdToggle", tr("&Toggle"), this)),
      cmdOK(Button("cmdOK", tr("OK"), this)),
      cmdCancel(Button("cmdCancel", tr("Cancel"), this)),
      lblState(new PlainLabel(QStringLiteral("lblState"), tr("State"), this))
{
    setObjectName(QStringLiteral("frmServer"));
    setWindowTitle(tr(kSelectionTitle));
    setModal(true);
    cmbServer->setObjectName(QStringLiteral("cmbServer"));
    lstSites->setObjectName(QStringLiteral("lstSites"));
    cmdOK->setDefault(true);
    LayOut();
    ListenToServerBox();
    ListenToSites();
    connect(cmdOK, &QPushButton::clicked, this, [this] { m_selection.Confirm(); });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

frmServer::~frmServer()
{
    m_selection.End();
}

void frmServer::LayOut()
{
    auto* const server = new QHBoxLayout;
    server->addWidget(LabelOf(cmbServer, tr("&Server:"), this));
    server->addWidget(cmbServer, 1);
    server->addWidget(cmdConnect);

    auto* const commands = new QHBoxLayout;
    for (auto* const button : {cmdSelAll, cmdUnselAll, cmdToggle}) commands->addWidget(button);
    commands->addStretch(1);

    auto* const end = new QHBoxLayout;
    end->addWidget(lblState, 1);
    for (auto* const button : {cmdOK, cmdCancel}) end->addWidget(button);

    auto* const all = new QVBoxLayout(this);
    all->addLayout(server);
    all->addSpacing(fontMetrics().height() / 2);
    all->addWidget(LabelOf(lstSites, tr("&Web sites:"), this));
    all->addWidget(lstSites, 1);
    all->addLayout(commands);
    all->addSpacing(fontMetrics().height() / 2);
    all->addLayout(end);

    resize(kWidth * fontMetrics().averageCharWidth(), kHeight * fontMetrics().lineSpacing());
    lstSites->header()->resizeSection(static_cast<int>(SiteColumn::Name), width() * kNameShare / 100);
}

void frmServer::ListenToServerBox()
{
    connect(cmbServer, &ServerCombo::Edited, this,
            [this](const QString& text) { m_selection.EditServer(text.toStdString()); });
    connect(cmbServer, &ServerCombo::Picked, this,
            [this](int entry) { m_selection.PickServer(static_cast<std::size_t>(entry)); });
    connect(cmbServer, &ServerCombo::Entered, this, [this] { m_selection.Connect(); });
    connect(cmbServer, &ServerCombo::Left, this, &frmServer::LeaveServer);
    connect(cmdConnect, &QPushButton::clicked, this, [this] { m_selection.Connect(); });
}

void frmServer::ListenToSites()
{
    connect(cmdSelAll, &QPushButton::clicked, this, [this] { m_model.CheckAll(true); });
    connect(cmdUnselAll, &QPushButton::clicked, this, [this] { m_model.CheckAll(false); });
    connect(cmdToggle, &QPushButton::clicked, lstSites, &SiteListView::ToggleHighlighted);
    connect(lstSites->header(), &QHeaderView::sectionClicked, this, &frmServer::SortBy);
    connect(&m_model, &SiteListModel::dataChanged, this, &frmServer::ShowState);
}

// ---- a showing

void frmServer::ShowModal()
{
    m_selection.Load(*this);
    if (m_selection.IsLoaded()) exec();
}

void frmServer::done(int result)
{
    m_selection.End();
    m_model.Reset();
    QDialog::done(result);
}

// ---- what the user does

// The box is validated by connecting, but not on the way out of the dialog, nor for a press on the button
// that connects anyway. It waits for the mouse press that took the focus away to be over.
void frmServer::LeaveServer(Qt::FocusReason reason)
{
    const auto* const next = QApplication::focusWidget();
    if (!isVisible() || next == cmdCancel) return;
    if (next == cmdConnect && reason == Qt::MouseFocusReason) return;
    QMetaObject::invokeMethod(
        this, [this] { m_selection.LeaveServer(); }, Qt::QueuedConnection);
}

void frmServer::SortBy(int column)
{
    m_model.SortBy(column);
    lstSites->header()->setSortIndicator(column, m_selection.Sites().IsDescending() ? Qt::DescendingOrder
                                                                                    : Qt::AscendingOrder);
}

// ---- what the selection shows

void frmServer::ShowServers()
{
    const auto& servers = m_selection.Servers();
    cmbServer->Offer(servers.entries, static_cast<int>(servers.selected));
    ShowServerName();
}

void frmServer::ShowServerName()
{
    cmbServer->ShowName(PlainText(m_selection.ServerName()));
}

void frmServer::ShowState()
{
    cmdOK->setEnabled(m_selection.CanConfirm());
    const auto text = StateText();
    lblState->ShowText(m_selection.Sites().Size() == 0 ? std::string() : text.toStdString());
    lstSites->ShowWhenEmpty(text);
}

QString frmServer::StateText() const
{
    const auto& sites = m_selection.Sites();
    switch (m_selection.State()) {
    case SitesState::NotConnected: return tr("Not connected to this server");
    case SitesState::NotListed: return tr("The web sites could not be listed");
    case SitesState::Edited: return tr("Not connected to this server yet");
    case SitesState::Reading: return tr("Reading the list of web sites...");
    case SitesState::Loaded: break;
    }
    const auto text = m_selection.IsCutShort() ? tr("%1 of the first %2 web sites checked; there are more")
                                               : tr("%1 of %2 web sites checked");
    return text.arg(locale().toString(static_cast<qulonglong>(sites.CheckedCount())),
                    locale().toString(static_cast<qulonglong>(sites.Size())));
}
