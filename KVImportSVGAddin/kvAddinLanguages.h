// The languages that the host's user interface comes in.

#pragma once

#include "kvApplication.h"

#include <QLocale>

struct AddinLanguage {
    kvLanguage_e host;
    QLocale::Language locale;
    const char *translation; ///< the resource with the add-in's texts
    const char *webHelp;     ///< what the web help calls the language
};

/// The language of `host`; null when there is no host, or none of the add-in's languages is set.
const AddinLanguage *languageOf(kvApplication_c *host);
