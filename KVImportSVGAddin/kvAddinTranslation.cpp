// Shows the add-in's texts in the language of the host's user interface.

#include "kvAddinConnection.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocale>
#include <QTranslator>

#include <algorithm>
#include <iterator>

namespace {

struct Language {
    kvLanguage_e host;
    QLocale::Language locale;
    const char *resource;
};

/// The languages of the host. The names are meant as they stand: "japnese" is what the file is called, and
/// the Italian and Brazilian ones name no file, so that these two get their locale and the source texts.
constexpr Language languages[] = {
    {kvLanguage_English, QLocale::English, ":/translation/ImportSVG_english.qm"},
    {kvLanguage_German, QLocale::German, ":/translation/ImportSVG_german.qm"},
    {kvLanguage_ChineseSimplified, QLocale::Chinese, ":/translation/ImportSVG_chinese-simplified.qm"},
    {kvLanguage_Chinese, QLocale::Chinese, ":/translation/ImportSVG_chinese.qm"},
    {kvLanguage_French, QLocale::French, ":/translation/ImportSVG_french.qm"},
    {kvLanguage_Italian, QLocale::Italian, ":/translation/KVHestamo_italian.qm"},
    {kvLanguage_Japanese, QLocale::Japanese, ":/translation/ImportSVG_japnese.qm"},
    {kvLanguage_Korean, QLocale::Korean, ":/translation/ImportSVG_korean.qm"},
    {kvLanguage_Polish, QLocale::Polish, ":/translation/ImportSVG_polish.qm"},
    {kvLanguage_PortugueseBrazilian, QLocale::Portuguese, ":/translation/ImportSVG_portugese-brazil.qm"},
    {kvLanguage_Russian, QLocale::Russian, ":/translation/ImportSVG_russian.qm"},
    {kvLanguage_Spanish, QLocale::Spanish, ":/translation/ImportSVG_spanish.qm"},
    {kvLanguage_Turkish, QLocale::Turkish, ":/translation/ImportSVG_turkish.qm"},
    {kvLanguage_Czech, QLocale::Czech, ":/translation/ImportSVG_czech.qm"},
};

kvLanguage_e hostLanguage(kvApplication_c *app)
{
    auto language = static_cast<kvLanguage_e>(0); // none of the table, should the host not answer
    if (app)
        app->GetLanguage(&language);
    return language;
}

} // namespace

void KVImportSVGAddinApplication::LoadTranslator()
{
    QString path;
    m_translator = new QTranslator;

    const kvLanguage_e language = hostLanguage(getKvApp());
    const auto *const row = std::find_if(std::begin(languages), std::end(languages),
                                         [language](const Language &l) { return l.host == language; });
    if (row != std::end(languages)) {
        QLocale::setDefault(QLocale(row->locale, QLocale::AnyCountry));
        path = QLatin1String(row->resource);
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
