// The user's settings of the host, kept from one start to the next.

#pragma once

#include "api/HostSession.h"

namespace refhost {

/// The stored settings; the default for each that was never stored.
HostSettings loadHostSettings();

void saveHostSettings(const HostSettings &settings);

/// Stores `folder` as the start of an import's file dialog, unless an existing folder is stored already.
void keepImportFolder(const QString &folder);

/// Stores the folder of the drawing that was opened or saved last.
void keepDrawingFolder(const QString &folder);
/// The stored folder of drawings; empty when there is none or it is gone.
QString loadDrawingFolder();

/// The folders that the user worked in last when preparing SVG files.
struct PreparationFolders {
    QString files;  ///< the folder of the prepared files
    QString copies; ///< the folder of their plain copies
};

/// The stored folders, each empty when it is gone or was never stored. Instead of a missing folder of files
/// it gives the start of an import's file dialog.
PreparationFolders loadPreparationFolders();

void savePreparationFolders(const PreparationFolders &folders);

/// A language that the host reports to add-ins. The host's own texts are always English.
struct HostLanguage {
    kvLanguage_e value;
    const char *name;   ///< English
    const char *locale; ///< Qt's name, such as "pt_BR"
};

/// All languages, English first, the others by name.
const std::vector<HostLanguage> &hostLanguages();

} // namespace refhost
