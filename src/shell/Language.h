#pragma once

#include <QStringList>
#include <QTranslator>

#include <memory>
#include <vector>

// The language that texts are shown in: the first of those wanted that there is a translation of, else
// English. Of Qt's own texts the same language is taken where it is installed. To be made when there is an
// application, before the first text is looked up; the texts are English again when it goes.
class Language {
public:
    // wanted: by preference, as QLocale::uiLanguages() tells them from the environment: "de-AT", "de", "en".
    explicit Language(const QStringList& wanted);
    ~Language();
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

    const QString& Name() const { return m_name; }  // "de_AT"; empty for English

private:
    bool Install(const QString& file, const QString& folder);

    QString m_name;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
