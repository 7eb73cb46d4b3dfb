// The languages of the host's user interface.

#pragma once

#include "kvApplication.h"

#include <QLocale>

struct AddinLanguage {
    kvLanguage_e host;
    QLocale::Language locale;
    const char *translation; ///< the resource with the add-in's texts
    const char *webHelp;     ///< what the web help calls the language
};

/// The language of `host`; null without a host, and when the add-in does not know the language.
const AddinLanguage *languageOf(kvApplication_c *host);
