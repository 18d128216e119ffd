#include "help/frmAbout.h"

#include "contracts/ShowError.h"
#include "help/SystemInformationPath.h"
#include "help/VersionText.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr int kIcons = 2;           // the picture's size, in large icons of the style
constexpr double kTitleSize = 1.5;  // of the window's font
constexpr int kLegalWidth = 48;     // in characters

QLabel* AddLabel(QVBoxLayout* column, const char* name, const QString& text)
{
    auto* const label = new QLabel(text);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(label);
    return label;
}

}  // namespace

frmAbout::frmAbout(const AboutHost& host, QWidget* parent) : QDialog(parent), m_host(host)
{
    const auto title = QString::fromUtf8(kProgramTitle.data(), qsizetype(kProgramTitle.size()));
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr("About ") + title);

    auto* const texts = new QVBoxLayout;
    auto* const titleLabel = AddLabel(texts, "lblTitle", title);
    auto font = titleLabel->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * kTitleSize);
    titleLabel->setFont(font);
    AddLabel(texts, "lblVersion",
             QString::fromStdString(
                 VersionText(QUILLET_VERSION_MAJOR, QUILLET_VERSION_MINOR, QUILLET_VERSION_REVISION)));
    texts->addSpacing(fontMetrics().lineSpacing());
    auto* const legal = AddLabel(texts, "lblLegal",
                                 tr("Copyright \u00a9 2026 the authors of Quillet. Licensed under the Apache "
                                    "License, Version 2.0, and provided as it is, without warranties of any "
                                    "kind."));
    legal->setWordWrap(true);
    legal->setMinimumWidth(fontMetrics().averageCharWidth() * kLegalWidth);
    texts->addStretch();

    auto* const picture = new QLabel;
    picture->setObjectName(QStringLiteral("imgProgram"));
    const int extent = style()->pixelMetric(QStyle::PM_LargeIconSize) * kIcons;
    picture->setPixmap(QApplication::windowIcon().pixmap(QSize(extent, extent), devicePixelRatioF()));
    auto* const top = new QHBoxLayout;
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addLayout(texts, 1);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("cmdOK"));
    auto* const systemInformation = buttons->addButton(tr("&System Info..."), QDialogButtonBox::ActionRole);
    systemInformation->setObjectName(QStringLiteral("cmdSysInfo"));
    systemInformation->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(systemInformation, &QPushButton::clicked, this, &frmAbout::ShowSystemInformation);

    auto* const all = new QVBoxLayout(this);
    all->addLayout(top);
    all->addWidget(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);
}

void frmAbout::ShowSystemInformation()
{
    const auto program = SystemInformationPath(m_host.registry);
    if (!program.empty() && m_host.starter.Start(program)) return;
    m_host.boxes.Show(tr("System information is unavailable at this time").toStdString(),
                      BoxStyle::Exclamation, std::string(kProgramTitle));
}
