// One row for each language with all that depends on it, and the translation of the add-in's texts.

#include "kvAddinLanguages.h"

#include "kvAddinConnection.h"

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>

#include <algorithm>
#include <iterator>

namespace {

// The names stay as they are. The Japanese file is called "japnese". The Italian and the Brazilian row name
// no file: these users get their locale and the source texts.
// clang-format off
constexpr AddinLanguage languages[] = {
    {kvLanguage_English, QLocale::English, ":/translation/ImportSVG_english.qm", "English"},
    {kvLanguage_German, QLocale::German, ":/translation/ImportSVG_german.qm", "German"},
    {kvLanguage_ChineseSimplified, QLocale::Chinese, ":/translation/ImportSVG_chinese-simplified.qm", "Chinese-simplified"},
    {kvLanguage_Chinese, QLocale::Chinese, ":/translation/ImportSVG_chinese.qm", "Chinese"},
    {kvLanguage_French, QLocale::French, ":/translation/ImportSVG_french.qm", "French"},
    {kvLanguage_Italian, QLocale::Italian, ":/translation/KVHestamo_italian.qm", "Italian"},
    {kvLanguage_Japanese, QLocale::Japanese, ":/translation/ImportSVG_japnese.qm", "Japanese"},
    {kvLanguage_Korean, QLocale::Korean, ":/translation/ImportSVG_korean.qm", "Korean"},
    {kvLanguage_Polish, QLocale::Polish, ":/translation/ImportSVG_polish.qm", "Polish"},
    {kvLanguage_PortugueseBrazilian, QLocale::Portuguese, ":/translation/ImportSVG_portugese-brazil.qm", "Portuguese-brazilian"},
    {kvLanguage_Russian, QLocale::Russian, ":/translation/ImportSVG_russian.qm", "Russian"},
    {kvLanguage_Spanish, QLocale::Spanish, ":/translation/ImportSVG_spanish.qm", "Spanish"},
    {kvLanguage_Turkish, QLocale::Turkish, ":/translation/ImportSVG_turkish.qm", "Turkish"},
    {kvLanguage_Czech, QLocale::Czech, ":/translation/ImportSVG_czech.qm", "Czech"},
};
// clang-format on

} // namespace

const AddinLanguage *languageOf(kvApplication_c *host)
{
    kvLanguage_e value{}; // in no row, for a host that does not answer
    if (host)
        host->GetLanguage(&value);
    const auto *row = std::find_if(std::begin(languages), std::end(languages),
                                   [value](const AddinLanguage &language) { return language.host == value; });
    return row == std::end(languages) ? nullptr : row;
}

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
    delete m_translator; // nothing asks for it again: the add-in object goes next
}
