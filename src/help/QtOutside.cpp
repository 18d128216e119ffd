#include "help/QtOutside.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

void QtWebOpener::Open(const std::string& address)
{
    QDesktopServices::openUrl(QUrl(QString::fromStdString(address), QUrl::StrictMode));
}

bool QtProgramStarter::Start(const std::filesystem::path& program)
{
    return QProcess::startDetached(QString::fromStdString(program.string()), {});
}
