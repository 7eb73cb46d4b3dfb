// Keeps the settings that tests make apart from the user's.

#pragma once

#include <QSettings>

/// Lets settings live in files of `folder`, on Windows too, whose registry knows no folders.
inline void keepSettingsIn(const QString &folder)
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
}
