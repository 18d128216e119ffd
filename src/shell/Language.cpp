#include "shell/Language.h"

#include "base/Translate.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace {

std::string TextFromQt(const char* context, const char* text)
{
    return *text == '\0' ? std::string() : QCoreApplication::translate(context, text).toStdString();
}

// The texts are English as they are: who prefers that wants no other language that comes after it.
bool IsEnglish(const QString& language)
{
    return language == u"C" || language == u"en" || language.startsWith(u"en-");
}

}  // namespace

Language::Language(const QStringList& wanted)
{
    Q_INIT_RESOURCE(translations);
    for (auto language : wanted) {
        if (IsEnglish(language)) return;
        language.replace(u'-', u'_');
        if (!Install(QStringLiteral("quillet_") + language, QStringLiteral(":/translations"))) continue;
        Install(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
        m_name = language;
        UseTranslator(TextFromQt);
        return;
    }
}

Language::~Language()
{
    if (!m_name.isEmpty()) UseTranslator(nullptr);
}

bool Language::Install(const QString& file, const QString& folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(file, folder)) return false;
    QCoreApplication::installTranslator(translator.get());
    m_translators.push_back(std::move(translator));
    return true;
}
