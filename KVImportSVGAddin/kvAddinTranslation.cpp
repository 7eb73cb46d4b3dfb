// Shows the add-in's texts in the language of the host's user interface.

#include "kvAddinConnection.h"

#include "kvAddinLanguages.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QTranslator>

void KVImportSVGAddinApplication::LoadTranslator()
{
    QString path;
    m_translator = new QTranslator;

    if (const AddinLanguage *language = languageOf(getKvApp())) {
        QLocale::setDefault(QLocale(language->locale, QLocale::AnyCountry));
        path = QLatin1String(language->translation);
    }

    // Without a translation the translator stays empty, and the source texts are shown.
    const bool loaded = m_translator->load(QDir::toNativeSeparators(path), QString(), QString(), QString());
    Q_UNUSED(loaded)
    QCoreApplication::installTranslator(m_translator);
}

void KVImportSVGAddinApplication::unLoadTranslator()
{
    if (!m_translator)
        return;
    QCoreApplication::removeTranslator(m_translator);
    delete m_translator; // the object goes next, and nothing asks for the translator until then
}
